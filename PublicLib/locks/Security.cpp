#include "PublicLib/locks/Security.h"

#include "PublicLib/errors/Exception.h"

#include <windows.h>

#include <aclapi.h>

namespace jsw {

SecurityEveryone::SecurityEveryone() {
    if (InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION) == FALSE) {
        throw Win32Exception(
            "SecurityEveryone::SecurityEveryone() InitializeSecurityDescriptor failed",
            GetLastError(), "SecurityEveryone", 21);
    }
    setSecurityIdEveryone();
    if (IsValidSid(everyone_.get()) == FALSE) {
        throw Win32Exception("SecurityEveryone::SecurityEveryone() IsValidSid failed",
                             GetLastError(), "SecurityEveryone", 28);
    }
    setAccessList();
}

void SecurityEveryone::setSecurityIdEveryone() {
    SID_IDENTIFIER_AUTHORITY world = {SECURITY_WORLD_SID_AUTHORITY};
    if (AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0,
                                 everyone_.put()) == FALSE) {
        throw Win32Exception(
            "SecurityEveryone::setSecurityIdEveryone() AllocateAndInitializeSid failed",
            GetLastError(), "SecurityEveryone", 44);
    }
}

void SecurityEveryone::setAccessList() {
    accessList_.resize(sizeof(ACL) + sizeof(ACCESS_ALLOWED_ACE) + GetLengthSid(everyone_.get()));
    auto* list = reinterpret_cast<ACL*>(accessList_.data());
    // What lies below a key must be as open as the key itself.
    constexpr DWORD kInherited = CONTAINER_INHERIT_ACE | OBJECT_INHERIT_ACE;
    // A list sized for its one entry and a descriptor just initialised leave these no way to fail.
    InitializeAcl(list, static_cast<DWORD>(accessList_.size()), ACL_REVISION);
    AddAccessAllowedAceEx(list, ACL_REVISION, kInherited, GENERIC_ALL, everyone_.get());
    SetSecurityDescriptorDacl(&descriptor_, TRUE, list, FALSE);
}

void Security::doApply(HANDLE object, SE_OBJECT_TYPE type) {
    if (type == SE_KERNEL_OBJECT) {
        if (SetKernelObjectSecurity(object, DACL_SECURITY_INFORMATION, everyone_.descriptor()) ==
            FALSE) {
            throw Win32Exception("Security::doApply() SetKernelObjectSecurity failed",
                                 GetLastError(), "Security", 40);
        }
        return;
    }
    BOOL present = FALSE;
    BOOL defaulted = FALSE;
    ACL* list = nullptr;
    if (GetSecurityDescriptorDacl(everyone_.descriptor(), &present, &list, &defaulted) == FALSE) {
        throw Win32Exception("Security::doApply() GetSecurityDescriptorDacl failed", GetLastError(),
                             "Security", 51);
    }
    const DWORD error =
        SetSecurityInfo(object, type, DACL_SECURITY_INFORMATION, nullptr, nullptr, list, nullptr);
    if (error != ERROR_SUCCESS) {
        throw Win32Exception("Security::doApply() SetSecurityInfo failed", error, "Security", 58);
    }
}

}  // namespace jsw
