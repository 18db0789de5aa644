#include "ExceptionClassName.h"

#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <typeinfo>

namespace norvik {

QString ExceptionClassName(const std::exception& error) {
    const char* mangled = typeid(error).name();
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> demangled(
        abi::__cxa_demangle(mangled, nullptr, nullptr, &status), &std::free);
    const QString name = QString::fromLatin1(status == 0 && demangled ? demangled.get() : mangled);
    return name.mid(name.lastIndexOf(QLatin1String("::")) + 1).remove(u':');
}

} // namespace norvik
