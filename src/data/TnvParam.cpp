#include "TnvParam.h"

#include "FieldTypeKinds.h"

namespace norvik {

bool TnvParam::IsBlob() const {
    return FieldTypeKinds::IsBinary(FDataType);
}

QString TnvParam::AsText() const {
    return FValue.isEmpty() ? QString() : FValue.toString();
}

} // namespace norvik
