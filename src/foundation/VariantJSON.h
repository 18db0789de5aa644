#pragma once

#include "TJSONVariantData.h"
#include "Variant.h"

#include <QString>

namespace norvik {

// Parses a text into a variant and never raises. An object or array text gives a JSON
// variant; a scalar text gives that scalar ("12" an Int64, "1.5" a Double, "\"x\"" a
// string, "true" a Boolean, "null" Null). Whatever follows the first value is ignored. Bad
// text gives what the parse had built when it stopped: the object or array with the members
// read so far, or Unassigned when not even a scalar could be read.
Variant JSONVariant(const QString& json);
// a new empty JSON object
Variant JSONVariantObject();
// a new empty JSON array
Variant JSONVariantArray();

// The record of a JSON variant, following references. Raises EJSONException
// "JSONVariantData.Data(<kind number><>JSONVariant)" for any other variant, with the number
// of its VarType.
TJSONVariantData* JSONVariantDataOf(Variant& value);
const TJSONVariantData* JSONVariantDataOf(const Variant& value);
// The record of a JSON variant of the expected kind (any kind for jvUndefined); for
// anything else one shared empty record that must not be changed. Never raises.
const TJSONVariantData* JSONVariantDataSafe(const Variant& value, TJSONVariantKind expected = jvUndefined);

// The kind of a JSON variant; raises EJSONException for any other variant.
TJSONVariantKind JSONVariantKindOf(const Variant& value);
// Whether the object has the key, exact in letter case; false for an array. Raises
// EJSONException for a variant that is no JSON variant.
bool JSONVariantHasName(const Variant& value, const QString& name);
// The number of elements of an array; 0 for an object. Raises EJSONException for a variant
// that is no JSON variant.
int JSONVariantCount(const Variant& value);
// The element at index of an array; Null when the JSON variant is no array, Unassigned for
// an index out of range. Raises EJSONException for a variant that is no JSON variant.
Variant JSONVariantItem(const Variant& value, int index);
// Appends an element to an array (an empty JSON variant becomes one). Raises EJSONException
// on an object or on a variant that is no JSON variant.
void JSONVariantAdd(Variant& value, const Variant& item);
// Sets a key of an object, replacing a present one (an empty JSON variant becomes an
// object). Raises EJSONException on an array, for an empty name, or on a variant that is no
// JSON variant.
void JSONVariantSet(Variant& value, const QString& name, const Variant& item);

} // namespace norvik
