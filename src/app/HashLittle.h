#pragma once

#include <QtGlobal>

// Bob Jenkins' lookup3 hash "hashlittle" over ALength bytes, as on a little-endian machine.
quint32 hashlittle(const void* AKey, size_t ALength, quint32 AInitValue);
