#include "PublicLib/locks/Security.h"

#include "PublicLib/errors/ErrorPlaces.h"

#include <windows.h>

#include <aclapi.h>

namespace jsw {

SecurityEveryone::SecurityEveryone() {
    if (InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION) == FALSE) {
        raiseLastError("SecurityEveryone::SecurityEveryone() InitializeSecurityDescriptor failed",
                       place::kEveryoneDescriptor);
    }
    setSecurityIdEveryone();
    if (IsValidSid(everyone_.get()) == FALSE) {
        raiseLastError("SecurityEveryone::SecurityEveryone() IsValidSid failed",
                       place::kEveryoneCheck);
    }
    setAccessList();
}

void SecurityEveryone::setSecurityIdEveryone() {
    SID_IDENTIFIER_AUTHORITY world = {SECURITY_WORLD_SID_AUTHORITY};
    if (AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0,
                                 everyone_.put()) == FALSE) {
        raiseLastError("SecurityEveryone::setSecurityIdEveryone() AllocateAndInitializeSid failed",
                       place::kEveryoneId);
    }
}

void SecurityEveryone::setAccessList() {
    accessList_.resize(sizeof(ACL) + sizeof(ACCESS_ALLOWED_ACE) + GetLengthSid(everyone_.get()));
    auto* list = reinterpret_cast<ACL*>(accessList_.data());
    // Subkeys get the same access as the key.
    constexpr DWORD kInherited = CONTAINER_INHERIT_ACE | OBJECT_INHERIT_ACE;
    // These cannot fail: the list has room for its one entry, and the descriptor is initialised.
    InitializeAcl(list, static_cast<DWORD>(accessList_.size()), ACL_REVISION);
    AddAccessAllowedAceEx(list, ACL_REVISION, kInherited, GENERIC_ALL, everyone_.get());
    SetSecurityDescriptorDacl(&descriptor_, TRUE, list, FALSE);
}

void Security::doApply(HANDLE object, SE_OBJECT_TYPE type) {
    if (type == SE_KERNEL_OBJECT) {
        if (SetKernelObjectSecurity(object, DACL_SECURITY_INFORMATION, everyone_.descriptor()) ==
            FALSE) {
            raiseLastError("Security::doApply() SetKernelObjectSecurity failed",
                           place::kApplyToObject);
        }
        return;
    }
    BOOL present = FALSE;
    BOOL defaulted = FALSE;
    ACL* list = nullptr;
    if (GetSecurityDescriptorDacl(everyone_.descriptor(), &present, &list, &defaulted) == FALSE) {
        raiseLastError("Security::doApply() GetSecurityDescriptorDacl failed",
                       place::kApplyReadList);
    }
    const DWORD error =
        SetSecurityInfo(object, type, DACL_SECURITY_INFORMATION, nullptr, nullptr, list, nullptr);
    if (error != ERROR_SUCCESS) {
        throw Win32Exception("Security::doApply() SetSecurityInfo failed", error,
                             place::kApplyToOthers);
    }
}

}  // namespace jsw
