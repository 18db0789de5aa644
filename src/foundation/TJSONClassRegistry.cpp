#include "TJSONClassRegistry.h"

namespace norvik {

QList<std::pair<QString, TJSONClassRegistry::Factory>>& TJSONClassRegistry::entries() {
    static QList<std::pair<QString, Factory>> table;
    return table;
}

bool TJSONClassRegistry::SameName(QStringView a, QStringView b) {
    if (a.size() != b.size())
        return false;
    constexpr char16_t CaseBit = 0x20;
    for (qsizetype i = 0; i < a.size(); ++i) {
        if ((a[i].unicode() | CaseBit) != (b[i].unicode() | CaseBit))
            return false;
    }
    return true;
}

void TJSONClassRegistry::Register(const QString& name, Factory factory) {
    for (auto& entry : entries()) {
        if (SameName(entry.first, name)) {
            entry = {name, std::move(factory)};
            return;
        }
    }
    entries().append({name, std::move(factory)});
}

QObject* TJSONClassRegistry::Create(QStringView name) {
    for (const auto& entry : entries()) {
        if (SameName(entry.first, name))
            return entry.second();
    }
    return nullptr;
}

} // namespace norvik
