#pragma once

#include <functional>
#include <utility>

namespace norvik {

// A handler bound to an object, as an event property holds it. Code says which handler it is
// and Data on which object it runs: two bindings of the same handler to the same object are
// equal, which is what lists of subscribers and the idle queue recognise entries by.
template <class Signature> struct TnvMethod {
    const void* Code = nullptr;
    const void* Data = nullptr;
    std::function<Signature> Call;

    explicit operator bool() const { return static_cast<bool>(Call); }
    bool SameAs(const TnvMethod& AOther) const { return Code == AOther.Code && Data == AOther.Data; }
};

namespace detail {

template <class> struct MethodSignature;

template <class TClass, class TResult, class... TArgs> struct MethodSignature<TResult (TClass::*)(TArgs...)> {
    using Type = TResult(TArgs...);
};

} // namespace detail

// The code of a member function: its address as a handler, the same in every unit.
template <auto AMethod> inline constexpr char MethodCodeTag = 0;

template <auto AMethod> constexpr const void* MethodCode() {
    return &MethodCodeTag<AMethod>;
}

// Binds a member function to an object.
template <auto AMethod, class TObject>
TnvMethod<typename detail::MethodSignature<decltype(AMethod)>::Type> MethodOf(TObject* AObject) {
    return {MethodCode<AMethod>(), AObject, [AObject](auto&&... AArgs) {
                return (AObject->*AMethod)(std::forward<decltype(AArgs)>(AArgs)...);
            }};
}

} // namespace norvik
