#pragma once

#include "IInterface.h"
#include "Variant.h"

#include <QString>
#include <QtGlobal>
#include <memory>
#include <variant>

class QObject;
struct QMetaObject;

namespace norvik {

// One element of a list of values of mixed kinds, as AddValues takes them. The kind picks
// what is stored: numbers, truth values, texts, currency and variants become the value,
// pointers, objects, classes and interfaces the payload of that name. Narrow text (char,
// const char*) is in the ANSI code page. A wide character stands for nothing and is passed
// over. An element that holds no value (std::monostate) is a programming error.
using TVarRec = std::variant<std::monostate, qint32, bool, char, double, QString, const char*,
                             const char16_t*, void*, QObject*, const QMetaObject*, char16_t, Currency,
                             Variant, std::shared_ptr<IInterface>, qint64>;

} // namespace norvik
