#include "TnvNamedValues.h"

#include "AnsiCodePage.h"
#include "Exception.h"
#include "Overloaded.h"

#include <QObject>
#include <stdexcept>

namespace norvik {

namespace {

template <class T, class Read> T readOrDefault(const TnvNamedValue* entry, T ADefault, Read read) {
    return entry ? read(*entry) : ADefault;
}

void assertSameCount(const QStringList& ANames, const QList<TVarRec>& AValues) {
    if (ANames.size() != AValues.size())
        throw std::logic_error(
            "TnvDispatchBase.Create: The count of parameter names mismatches the count of values.");
}

QString ansiText(const char* text) {
    return platform::AnsiCodePage::decode(QByteArray(text));
}

} // namespace

std::shared_ptr<TnvNamedValues> TnvNamedValues::Create() {
    return std::make_shared<TnvNamedValues>();
}

std::shared_ptr<TnvNamedValues> TnvNamedValues::Create(const QStringList& ANames,
                                                       const QList<TVarRec>& AValues) {
    auto list = Create();
    list->AddValues(ANames, AValues);
    return list;
}

TnvNamedValue* TnvNamedValues::GetNamedValue(const QString& AName) const {
    const auto found = FCache.find(AName);
    return found == FCache.end() ? nullptr : found->second.get();
}

TnvNamedValue* TnvNamedValues::GetValue(const QString& AName) const {
    if (TnvNamedValue* entry = GetNamedValue(AName))
        return entry;
    throw Exception(QStringLiteral("The named value \"%1\" does not exist!").arg(AName));
}

void TnvNamedValues::SetValue(const QString& AName, const Variant& AValue) {
    const Variant value = AValue.stripped();
    if (TnvNamedValue* entry = GetNamedValue(AName))
        entry->SetAsVariant(value);
    else
        FCache.emplace(AName, std::make_unique<TnvNamedValue>(AName, value));
}

TnvNamedValue& TnvNamedValues::ensureEntry(const QString& AName) {
    if (TnvNamedValue* entry = GetNamedValue(AName))
        return *entry;
    auto created = std::make_unique<TnvNamedValue>(AName, Variant::null());
    TnvNamedValue& entry = *created;
    FCache.emplace(AName, std::move(created));
    return entry;
}

QList<TnvNamedValue*> TnvNamedValues::GetValues() const {
    QList<TnvNamedValue*> values;
    values.reserve(qsizetype(FCache.size()));
    for (const auto& [name, entry] : FCache)
        values.append(entry.get());
    return values;
}

bool TnvNamedValues::GetIsNull(const QString& AName) const {
    const TnvNamedValue* entry = GetNamedValue(AName);
    return !entry || entry->IsNull();
}

qint64 TnvNamedValues::GetValueAsIdentifier(const QString& AName) const {
    return GetValue(AName)->AsIdentifier();
}

qint32 TnvNamedValues::GetValueAsInteger(const QString& AName) const {
    return GetValue(AName)->AsInteger();
}

bool TnvNamedValues::GetValueAsBoolean(const QString& AName) const {
    return GetValue(AName)->AsBoolean();
}

TDateTime TnvNamedValues::GetValueAsDateTime(const QString& AName) const {
    return GetValue(AName)->AsDateTime();
}

double TnvNamedValues::GetValueAsDouble(const QString& AName) const {
    return GetValue(AName)->AsDouble();
}

QObject* TnvNamedValues::GetValueAsObject(const QString& AName) const {
    return GetValue(AName)->AsObject();
}

const QMetaObject* TnvNamedValues::GetValueAsClass(const QString& AName) const {
    return GetValue(AName)->AsClass();
}

void* TnvNamedValues::GetValueAsPointer(const QString& AName) const {
    return GetValue(AName)->AsPointer();
}

QString TnvNamedValues::GetValueAsString(const QString& AName) const {
    return GetValue(AName)->AsString();
}

Currency TnvNamedValues::GetValueAsCurrency(const QString& AName) const {
    return GetValue(AName)->AsCurrency();
}

Variant TnvNamedValues::GetValueAsVariant(const QString& AName) const {
    return GetValue(AName)->AsVariant();
}

// the one strict getter that does not raise; callers rely on that
QByteArray TnvNamedValues::GetValueAsBytes(const QString& AName) const {
    return GetAsBytes(AName);
}

qint64 TnvNamedValues::GetAsIdentifier(const QString& AName) const {
    return GetValueAsIdentifier(AName, 0);
}

qint32 TnvNamedValues::GetAsInteger(const QString& AName) const {
    return GetValueAsInteger(AName, 0);
}

bool TnvNamedValues::GetAsBoolean(const QString& AName) const {
    return GetValueAsBoolean(AName, false);
}

TDateTime TnvNamedValues::GetAsDateTime(const QString& AName) const {
    return GetValueAsDateTime(AName, 0);
}

double TnvNamedValues::GetAsDouble(const QString& AName) const {
    return GetValueAsDouble(AName, 0);
}

QObject* TnvNamedValues::GetAsObject(const QString& AName) const {
    return GetValueAsObject(AName, nullptr);
}

// a missing class reads as the root class, never as nullptr
const QMetaObject* TnvNamedValues::GetAsClass(const QString& AName) const {
    return GetValueAsClass(AName, &QObject::staticMetaObject);
}

void* TnvNamedValues::GetAsPointer(const QString& AName) const {
    return GetValueAsPointer(AName, nullptr);
}

QString TnvNamedValues::GetAsString(const QString& AName) const {
    return GetValueAsString(AName, QString());
}

Currency TnvNamedValues::GetAsCurrency(const QString& AName) const {
    return GetValueAsCurrency(AName, Currency{});
}

Variant TnvNamedValues::GetAsVariant(const QString& AName) const {
    return GetValueAsVariant(AName, Variant::null());
}

QByteArray TnvNamedValues::GetAsBytes(const QString& AName) const {
    return GetValueAsBytes(AName, QByteArray());
}

qint64 TnvNamedValues::GetValueAsIdentifier(const QString& AName, qint64 ADefault) const {
    return readOrDefault(GetNamedValue(AName), ADefault,
                         [](const TnvNamedValue& e) { return e.AsIdentifier(); });
}

qint32 TnvNamedValues::GetValueAsInteger(const QString& AName, qint32 ADefault) const {
    return readOrDefault(GetNamedValue(AName), ADefault,
                         [](const TnvNamedValue& e) { return e.AsInteger(); });
}

bool TnvNamedValues::GetValueAsBoolean(const QString& AName, bool ADefault) const {
    return readOrDefault(GetNamedValue(AName), ADefault,
                         [](const TnvNamedValue& e) { return e.AsBoolean(); });
}

TDateTime TnvNamedValues::GetValueAsDateTime(const QString& AName, TDateTime ADefault) const {
    return readOrDefault(GetNamedValue(AName), ADefault,
                         [](const TnvNamedValue& e) { return e.AsDateTime(); });
}

double TnvNamedValues::GetValueAsDouble(const QString& AName, double ADefault) const {
    return readOrDefault(GetNamedValue(AName), ADefault, [](const TnvNamedValue& e) { return e.AsDouble(); });
}

QObject* TnvNamedValues::GetValueAsObject(const QString& AName, QObject* ADefault) const {
    return readOrDefault(GetNamedValue(AName), ADefault, [](const TnvNamedValue& e) { return e.AsObject(); });
}

const QMetaObject* TnvNamedValues::GetValueAsClass(const QString& AName, const QMetaObject* ADefault) const {
    return readOrDefault(GetNamedValue(AName), ADefault, [](const TnvNamedValue& e) { return e.AsClass(); });
}

void* TnvNamedValues::GetValueAsPointer(const QString& AName, void* ADefault) const {
    return readOrDefault(GetNamedValue(AName), ADefault,
                         [](const TnvNamedValue& e) { return e.AsPointer(); });
}

QString TnvNamedValues::GetValueAsString(const QString& AName, const QString& ADefault) const {
    return readOrDefault(GetNamedValue(AName), ADefault, [](const TnvNamedValue& e) { return e.AsString(); });
}

Currency TnvNamedValues::GetValueAsCurrency(const QString& AName, Currency ADefault) const {
    return readOrDefault(GetNamedValue(AName), ADefault,
                         [](const TnvNamedValue& e) { return e.AsCurrency(); });
}

Variant TnvNamedValues::GetValueAsVariant(const QString& AName, const Variant& ADefault) const {
    return readOrDefault(GetNamedValue(AName), ADefault,
                         [](const TnvNamedValue& e) { return e.AsVariant(); });
}

QByteArray TnvNamedValues::GetValueAsBytes(const QString& AName, const QByteArray& ADefault) const {
    return readOrDefault(GetNamedValue(AName), ADefault, [](const TnvNamedValue& e) { return e.AsBytes(); });
}

void TnvNamedValues::SetValueAsIdentifier(const QString& AName, qint64 AValue) {
    SetValue(AName, Variant(AValue));
}

void TnvNamedValues::SetValueAsInteger(const QString& AName, qint32 AValue) {
    SetValue(AName, Variant(AValue));
}

void TnvNamedValues::SetValueAsBoolean(const QString& AName, bool AValue) {
    SetValue(AName, Variant(AValue));
}

void TnvNamedValues::SetValueAsDateTime(const QString& AName, TDateTime AValue) {
    SetValue(AName, Variant::fromDate(AValue));
}

void TnvNamedValues::SetValueAsDouble(const QString& AName, double AValue) {
    SetValue(AName, Variant(AValue));
}

void TnvNamedValues::SetValueAsObject(const QString& AName, QObject* AValue) {
    ensureEntry(AName).SetAsObject(AValue);
}

void TnvNamedValues::SetValueAsClass(const QString& AName, const QMetaObject* AValue) {
    ensureEntry(AName).SetAsClass(AValue);
}

void TnvNamedValues::SetValueAsPointer(const QString& AName, void* AValue) {
    ensureEntry(AName).SetAsPointer(AValue);
}

void TnvNamedValues::SetValueAsString(const QString& AName, const QString& AValue) {
    SetValue(AName, Variant(AValue));
}

void TnvNamedValues::SetValueAsCurrency(const QString& AName, Currency AValue) {
    SetValue(AName, Variant(AValue));
}

void TnvNamedValues::SetValueAsVariant(const QString& AName, const Variant& AValue) {
    SetValue(AName, AValue);
}

void TnvNamedValues::SetValueAsBytes(const QString& AName, const QByteArray& AValue) {
    SetValue(AName, Variant(AValue));
}

void TnvNamedValues::Add(const QString& AName, const Variant& AValue) {
    SetValueAsVariant(AName, AValue);
}

void TnvNamedValues::AddClass(const QString& AName, const QMetaObject* AValue) {
    SetValueAsClass(AName, AValue);
}

void TnvNamedValues::AddValues(const QStringList& ANames, const QList<TVarRec>& AValues) {
    assertSameCount(ANames, AValues);
    for (qsizetype i = 0; i < ANames.size(); ++i)
        addElement(ANames.at(i), AValues.at(i));
}

void TnvNamedValues::addElement(const QString& AName, const TVarRec& AValue) {
    std::visit(
        Overloaded{
            [&](std::monostate) { throw std::logic_error("unknown data type in TnvNamedValues.AddValues!"); },
            [&](qint32 value) { Add(AName, Variant(value)); },
            [&](bool value) { Add(AName, Variant(value)); },
            [&](char value) { Add(AName, Variant(platform::AnsiCodePage::decode(QByteArray(1, value)))); },
            [&](double value) { Add(AName, Variant(value)); },
            [&](const QString& value) { Add(AName, Variant(value)); },
            [&](const char* value) { Add(AName, Variant(ansiText(value))); },
            [&](const char16_t* value) { Add(AName, Variant(QString::fromUtf16(value))); },
            [&](void* value) { SetValueAsPointer(AName, value); },
            [&](QObject* value) { SetValueAsObject(AName, value); },
            [&](const QMetaObject* value) { AddClass(AName, value); },
            // a wide character has never been stored: the name is passed over
            [](char16_t) {},
            [&](Currency value) { Add(AName, Variant(value)); },
            [&](const Variant& value) { Add(AName, value); },
            [&](const std::shared_ptr<IInterface>& value) { AddInterface(AName, value); },
            [&](qint64 value) { Add(AName, Variant(value)); },
        },
        AValue);
}

void TnvNamedValues::AddValue(const TnvNamedValue& AValue) {
    if (ValueExists(AValue.Name()))
        return;
    auto copy = std::make_unique<TnvNamedValue>(AValue.Name(), Variant());
    copy->ApplyValueFrom(AValue);
    FCache.emplace(AValue.Name(), std::move(copy));
}

void TnvNamedValues::AddValue(std::unique_ptr<TnvNamedValue>& AValue) {
    if (!AValue || ValueExists(AValue->Name()))
        return;
    const QString name = AValue->Name();
    FCache.emplace(name, std::move(AValue));
}

bool TnvNamedValues::ValueExists(const QString& AName) const {
    return FCache.contains(AName);
}

TnvNamedValue* TnvNamedValues::FindValue(const QString& AName) const {
    return GetNamedValue(AName);
}

Variant TnvNamedValues::toJSON() const {
    TJSONVariantData object;
    object.VKind = jvObject;
    Variant result(object);
    for (const auto& [name, entry] : FCache)
        result.json()->SetValue(entry->Name(), Variant(entry->AsString()));
    return result;
}

void TnvNamedValues::ClearValues() {
    FCache.clear();
}

int TnvNamedValues::Count() const {
    return int(FCache.size());
}

void TnvNamedValues::Clear() {
    ClearValues();
}

void TnvNamedValues::Delete(const QString& AName) {
    FCache.erase(AName);
}

void TnvNamedValues::AddInterface(const QString& AName, std::shared_ptr<IInterface> AValue) {
    ensureEntry(AName).SetInterface(std::move(AValue));
}

QString TnvNamedValues::GetNames(const QString& ASeparator) const {
    QString names;
    for (const auto& [name, entry] : FCache)
        names += entry->Name();
    return names.mid(ASeparator.size());
}

} // namespace norvik
