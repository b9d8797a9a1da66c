#pragma once

#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <accctrl.h>

#include <vector>

namespace jsw {

/// A security descriptor whose access list grants every right to the group Everyone, so that
/// printing applications of every account can open the objects created with it.
class SecurityEveryone {
  public:
    /// Throws Win32Exception if the descriptor cannot be built.
    SecurityEveryone();
    SecurityEveryone(const SecurityEveryone&) = delete;
    SecurityEveryone& operator=(const SecurityEveryone&) = delete;

    SECURITY_DESCRIPTOR* descriptor() { return &descriptor_; }

  private:
    void setSecurityIdEveryone();
    void setAccessList();

    SECURITY_DESCRIPTOR descriptor_{};
    SidHandle everyone_;
    std::vector<BYTE> accessList_;
};

/// Applies that descriptor: attributes() when an object is created, doApply() to an existing one.
class Security {
  public:
    Security() = default;
    Security(const Security&) = delete;
    Security& operator=(const Security&) = delete;

    /// Valid during this object's lifetime.
    SECURITY_ATTRIBUTES* attributes() { return &attributes_; }

    /// Sets the descriptor's access list on an open object. The type is that of a file, registry
    /// key or printer; for all other objects SE_KERNEL_OBJECT. Throws Win32Exception on failure.
    void doApply(HANDLE object, SE_OBJECT_TYPE type);

  private:
    SecurityEveryone everyone_;
    SECURITY_ATTRIBUTES attributes_{sizeof(SECURITY_ATTRIBUTES), everyone_.descriptor(), FALSE};
};

}  // namespace jsw
