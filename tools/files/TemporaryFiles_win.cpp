#include <memory>
#include <vector>
// clang-format off
#include "tools/WindowsApi.h"
#include <sddl.h>
// clang-format on

#include "tools/Error.h"
#include "tools/files/Path.h"
#include "tools/files/SystemFiles_win.h"
#include "tools/files/TemporaryFiles.h"

namespace tools {

namespace {

constexpr const char* kCannotMake = "Der temporäre Ordner kann nicht angelegt werden";

struct LocalMemory {
  void operator()(void* memory) const { LocalFree(memory); }
};

/// Opens a file or folder for reading, sharing it as `sharing` says.
HANDLE OpenShared(const std::string& path, DWORD sharing) {
  return CreateFileW(LongPath(path).c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING,
                     FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

/// The security identifier of the user that this process runs for, as text; empty on failure.
std::wstring UserSid() {
  HANDLE token = nullptr;
  if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) == 0) return {};
  std::vector<std::byte> user(sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE);
  DWORD size = 0;
  const BOOL known =
      GetTokenInformation(token, TokenUser, user.data(), static_cast<DWORD>(user.size()), &size);
  CloseHandle(token);
  wchar_t* text = nullptr;
  if (known == 0 || ConvertSidToStringSidW(
                        reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid, &text) == 0) {
    return {};
  }
  const std::unique_ptr<wchar_t, LocalMemory> owner(text);
  return text;
}

}  // namespace

struct TemporaryHold::Mark {
  FileHandle handle;
};

// Everything is shared, so that the owner can write, rename and remove; the open handle itself is
// the mark.
TemporaryHold::TemporaryHold(const std::string& path)
    : mark_(new Mark{
          FileHandle(OpenShared(path, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE))}) {
  if (mark_->handle.IsOpen()) return;
  const DWORD error = GetLastError();
  lost_ = error == ERROR_FILE_NOT_FOUND || error == ERROR_SHARING_VIOLATION;
}

TemporaryHold::~TemporaryHold() = default;

// Sharing nothing fails while anybody has it open.
bool IsOwnerGone(const std::string& path) { return FileHandle(OpenShared(path, 0)).IsOpen(); }

void RemoveIfOwnerIsGone(const std::string& path, void (*remove)(const std::string&)) {
  if (IsOwnerGone(path)) remove(path);
}

void PrivateTemporaryFolder::Make(const std::string& path) {
  const std::wstring sid = UserSid();
  if (sid.empty()) throw PathError(kCannotMake, FolderOf(path), LastSystemError());

  // Protected from what the parent folder grants, full access for the user alone, inherited by all
  // that lies inside.
  const std::wstring rights = L"D:P(A;OICI;FA;;;" + sid + L")";
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (ConvertStringSecurityDescriptorToSecurityDescriptorW(rights.c_str(), SDDL_REVISION_1,
                                                           &descriptor, nullptr) == 0) {
    throw PathError(kCannotMake, FolderOf(path), LastSystemError());
  }
  const std::unique_ptr<void, LocalMemory> owner(descriptor);
  SECURITY_ATTRIBUTES attributes{sizeof(SECURITY_ATTRIBUTES), descriptor, FALSE};
  // Fails when the name exists, so nobody can have prepared the folder.
  if (CreateDirectoryW(LongPath(path).c_str(), &attributes) == 0) {
    throw PathError(kCannotMake, FolderOf(path), LastSystemError());
  }
}

}  // namespace tools
