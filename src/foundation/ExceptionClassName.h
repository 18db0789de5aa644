#pragma once

#include <QString>
#include <exception>

namespace norvik {

// The class name of an exception without its namespace, as logs show it: "EConvertError".
QString ExceptionClassName(const std::exception& error);

} // namespace norvik
