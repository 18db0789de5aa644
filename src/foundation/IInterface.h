#pragma once

namespace norvik {

// Base of everything that is shared by reference count. Such objects are held by
// std::shared_ptr, which does the counting; without a COM-like registry an interface is
// identified by its C++ type, so asking an object for an interface is a dynamic cast.
class IInterface {
public:
    virtual ~IInterface() = default;

protected:
    IInterface() = default;
    IInterface(const IInterface&) = default;
    IInterface& operator=(const IInterface&) = default;
};

} // namespace norvik
