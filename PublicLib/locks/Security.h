#pragma once

#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <accctrl.h>

#include <vector>

namespace jsw {

/// A security descriptor whose access list grants every right to the Everyone group. Things that
/// are created with it can be opened by the printing applications of every account.
class SecurityEveryone {
  public:
    /// Throws Win32Exception when the descriptor cannot be built.
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

/// Applies the Everyone descriptor: to things while they are created, through attributes(), or to
/// things that exist, through doApply().
class Security {
  public:
    Security() = default;
    Security(const Security&) = delete;
    Security& operator=(const Security&) = delete;

    /// Valid as long as this object.
    SECURITY_ATTRIBUTES* attributes() { return &attributes_; }

    /// Sets the descriptor's access list on an open object. A file, registry key or printer is
    /// given by its type, everything else is SE_KERNEL_OBJECT. Throws Win32Exception on failure.
    void doApply(HANDLE object, SE_OBJECT_TYPE type);

  private:
    SecurityEveryone everyone_;
    SECURITY_ATTRIBUTES attributes_{sizeof(SECURITY_ATTRIBUTES), everyone_.descriptor(), FALSE};
};

}  // namespace jsw
