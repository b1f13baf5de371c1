#include "core/platform/win32/FileProtection.h"

#include <windows.h>

#include <aclapi.h>

namespace {

// Whether the list has entries of its own, apart from those inherited from the folder.
bool HasExplicitEntry(PACL list) {
    for (DWORD i = 0; i < list->AceCount; ++i) {
        void* entry = nullptr;
        if (GetAce(list, i, &entry) != FALSE &&
            (static_cast<const ACE_HEADER*>(entry)->AceFlags & INHERITED_ACE) == 0) {
            return true;
        }
    }
    return false;
}

void CopyAccessList(const std::wstring& from, std::wstring to) {
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (GetNamedSecurityInfoW(from.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                              &list, nullptr, &descriptor) != ERROR_SUCCESS) {
        return;
    }
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    GetSecurityDescriptorControl(descriptor, &control, &revision);
    const bool isProtected = (control & SE_DACL_PROTECTED) != 0;
    if (list != nullptr && (isProtected || HasExplicitEntry(list))) {
        SetNamedSecurityInfoW(
            to.data(), SE_FILE_OBJECT,
            DACL_SECURITY_INFORMATION |
                (isProtected ? PROTECTED_DACL_SECURITY_INFORMATION : UNPROTECTED_DACL_SECURITY_INFORMATION),
            nullptr, nullptr, list, nullptr);
    }
    LocalFree(descriptor);
}

}  // namespace

void CopyProtection(const std::wstring& from, const std::wstring& to) {
    constexpr DWORD kKept =
        FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    const DWORD attributes = GetFileAttributesW(from.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return;
    }
    CopyAccessList(from, to);
    if ((attributes & kKept) != 0) {
        SetFileAttributesW(to.c_str(), (attributes & kKept) | FILE_ATTRIBUTE_ARCHIVE);
    }
}
