#pragma once

#include <QString>
#include <QtGlobal>

namespace norvik {

// Bob Jenkins' lookup2 hash over the name's bytes in the ANSI code page, initial value 0, with
// every ASCII letter upper-cased on the way in: two names that differ only in the case of
// their letters hash alike. System fields, the delete-flag fields and the field-type cache
// are recognised by it.
quint32 NameHash(const QString& name);

} // namespace norvik
