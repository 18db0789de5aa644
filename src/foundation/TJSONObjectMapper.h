#pragma once

class QObject;

namespace norvik {

struct TJSONVariantData;

// Fills the Qt properties of objects from JSON records.
//
// An object record sets, key by key, the property of that name (found in any letter case;
// unknown keys are passed over): numbers, truth values, enumerations and flags from the
// value's number; dates from ISO 8601 text, local time as written (text that is no date gives
// no date); strings; QVariant as the value stands;
// byte arrays from the base64 form behind the mark U+FFF0; string lists from an array, one
// line per element; an object property by filling the object it holds, or, when it holds
// none, a new object made from the class the record names under "ClassName" (owned by the
// instance). Null gives a scalar property its zero.
//
// An array record needs a collection: an object whose class information "JSONItemClass"
// names a registered item class. Its children are deleted and one item is made and filled
// per element.
class TJSONObjectMapper {
public:
    static constexpr const char* ItemClassInfo = "JSONItemClass";

    // false when a value does not fit its property or an item could not be made
    static bool ToObject(const TJSONVariantData& data, QObject* instance);
    // a new object of the class named under "ClassName", filled; nullptr when the class is
    // unknown or a value does not fit
    static QObject* ToNewObject(const TJSONVariantData& data);
};

} // namespace norvik
