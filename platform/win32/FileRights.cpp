#include "platform/win32/FileRights.h"

#include <aclapi.h>

#include "platform/win32/Handles.h"
#include "platform/win32/SystemFile.h"
#include "platform/win32/WideText.h"

namespace tarvex {

namespace {

/// The TOKEN_USER of the user who runs the program; empty when the system does not tell.
std::string TokenUserOf() {
    UniqueHandle<HANDLE, CloseHandle> token;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.Receive())) {
        return {};
    }
    DWORD size = 0;
    GetTokenInformation(token.Get(), TokenUser, nullptr, 0, &size);
    std::string user(size, '\0');
    if (!GetTokenInformation(token.Get(), TokenUser, user.data(), size, &size)) {
        return {};
    }
    return user;
}

void ThrowUnlessUnknown(DWORD error) {
    if (error != ERROR_NOT_SUPPORTED && error != ERROR_INVALID_FUNCTION) {
        throw FileFailureOf(error);
    }
}

}  // namespace

OwnerOnlyRights::OwnerOnlyRights() : valid_(false) {
    const std::string user = TokenUserOf();
    if (user.empty()) {
        return;
    }
    const PSID sid = reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid;
    list_.resize(sizeof(ACL) + sizeof(ACCESS_ALLOWED_ACE) + GetLengthSid(sid));
    ACL* const list = reinterpret_cast<ACL*>(list_.data());
    valid_ = InitializeAcl(list, static_cast<DWORD>(list_.size()), ACL_REVISION) &&
             AddAccessAllowedAce(list, ACL_REVISION, FILE_ALL_ACCESS, sid) &&
             InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION) &&
             SetSecurityDescriptorDacl(&descriptor_, TRUE, list, FALSE) &&
             // Without this the folder's rights come on top.
             SetSecurityDescriptorControl(&descriptor_, SE_DACL_PROTECTED, SE_DACL_PROTECTED);
    attributes_.nLength = sizeof(attributes_);
    attributes_.lpSecurityDescriptor = &descriptor_;
}

void CopyRights(const std::u16string& model, const std::u16string& path) {
    DWORD size = 0;
    GetFileSecurityW(Wide(model), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::string bytes(size, '\0');
    PSECURITY_DESCRIPTOR const rights = bytes.data();
    if (!GetFileSecurityW(Wide(model), DACL_SECURITY_INFORMATION, rights, size, &size)) {
        ThrowUnlessUnknown(GetLastError());
        return;
    }
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    GetSecurityDescriptorControl(rights, &control, &revision);
    if ((control & SE_DACL_AUTO_INHERITED) != 0) {
        // Without being asked to, the system forgets that the rights come from the folder.
        SetSecurityDescriptorControl(rights, SE_DACL_AUTO_INHERIT_REQ, SE_DACL_AUTO_INHERIT_REQ);
    }
    if (!SetFileSecurityW(Wide(path), DACL_SECURITY_INFORMATION, rights)) {
        ThrowUnlessUnknown(GetLastError());
    }
}

void InheritRights(const std::u16string& path) {
    ACL none;
    InitializeAcl(&none, sizeof(none), ACL_REVISION);
    std::u16string name = path;
    const DWORD error =
        SetNamedSecurityInfoW(Wide(name), SE_FILE_OBJECT,
                              DACL_SECURITY_INFORMATION | UNPROTECTED_DACL_SECURITY_INFORMATION,
                              nullptr, nullptr, &none, nullptr);
    if (error != ERROR_SUCCESS) {
        ThrowUnlessUnknown(error);
    }
}

}  // namespace tarvex
