#include "platform/win32/Handles.h"
#include "platform/win32/SystemFile.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/WindowsApi.h"
#include "tests/platform/RealFilesContract.h"

#include <aclapi.h>

namespace tarvex {

namespace {

using Win32World = RealWorld<Win32FileStore>;

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Win32, BinaryFilesContract, Win32World);
INSTANTIATE_TYPED_TEST_SUITE_P(Win32, RealFilesContract, Win32FileStore);

namespace {

TEST(Win32FileStoreTest, ReadOnlyFileIsRefused) {
    Win32World world;
    world.MakeFile(u"a.exe", "alt");
    if (!world.MakeReadOnly(u"a.exe")) {
        GTEST_SKIP() << "this user may write to read-only files";
    }
    EXPECT_EQ(ProblemOf([&] { world.files().Open(world.Path(u"a.exe")); }),
              FileProblem::AccessDenied);
}

TEST(Win32FileStoreTest, DeviceIsRefused) {
    EXPECT_EQ(ProblemOf([] { Win32FileStore().Open(u"NUL"); }), FileProblem::NotAFile);
    EXPECT_EQ(ProblemOf([] { Win32FileStore().ReadAll(u"NUL"); }), FileProblem::NotAFile);
}

TEST(Win32FileStoreTest, OpenFileMayBeReadByOthers) {
    Win32World world;
    world.MakeFile(u"a.exe", "alt");
    const auto file = world.files().Open(world.Path(u"a.exe"));
    EXPECT_EQ(world.Bytes(u"a.exe"), "alt");
}

TEST(Win32FileStoreTest, SeekBeforeTheBeginningFails) {
    Win32World world;
    world.MakeFile(u"a.exe", "alt");
    const auto file = world.files().Open(world.Path(u"a.exe"));
    EXPECT_EQ(ProblemOf([&] { file->Seek(-1); }), FileProblem::Device);
}

TEST(Win32FileStoreTest, HiddenFileStaysHidden) {
    TestFolder folder;
    Win32FileStore store;
    folder.MakeFile(u"a.exe", "alt");
    const std::u16string path = folder.Path(u"a.exe");
    SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    store.ReplaceWith(store.WriteNewBeside(path, "neu"), path, {});
    EXPECT_EQ(folder.Bytes(u"a.exe"), "neu");
    EXPECT_EQ(GetFileAttributesW(Wide(path)) & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM),
              DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM});
}

TEST(Win32FileStoreTest, FileOpenElsewhereIsNotReplaced) {
    Win32World world;
    Win32FileStore store;
    world.MakeFile(u"a.exe", "alt");
    const std::u16string path = world.Path(u"a.exe");
    const std::u16string temp = store.WriteNewBeside(path, "neu");
    {
        const auto open = world.files().Open(path);
        EXPECT_EQ(ProblemOf([&] { store.ReplaceWith(temp, path, {}); }), FileProblem::InUse);
    }
    EXPECT_EQ(world.Bytes(u"a.exe"), "alt");
    EXPECT_EQ(store.ReadAll(temp), "neu");
}

TEST(Win32FileStoreTest, ReaderThatLetsNobodyReplaceTheFileIsNamed) {
    Win32World world;
    Win32FileStore store;
    world.MakeFile(u"a.exe", "alt");
    const std::u16string path = world.Path(u"a.exe");
    const std::u16string temp = store.WriteNewBeside(path, "neu");
    const UniqueFile reader(CreateFileW(Wide(path), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    EXPECT_EQ(ProblemOf([&] { store.ReplaceWith(temp, path, {}); }), FileProblem::InUse);
    EXPECT_EQ(world.Bytes(u"a.exe"), "alt");
}

DWORD WINAPI CloseSoon(void* handle) {
    Sleep(300);
    return CloseHandle(handle) != 0 ? 0 : 1;
}

TEST(Win32FileStoreTest, ReaderThatIsGoneInAMomentIsWaitedFor) {
    Win32World world;
    Win32FileStore store;
    world.MakeFile(u"a.exe", "alt");
    const std::u16string path = world.Path(u"a.exe");
    const std::u16string temp = store.WriteNewBeside(path, "neu");
    const HANDLE reader = CreateFileW(Wide(path), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    const UniqueHandle<HANDLE, CloseHandle> closing(
        CreateThread(nullptr, 0, CloseSoon, reader, 0, nullptr));
    EXPECT_EQ(ProblemOf([&] { store.ReplaceWith(temp, path, {}); }), std::nullopt);
    WaitForSingleObject(closing.Get(), 5000);
    EXPECT_EQ(world.Bytes(u"a.exe"), "neu");
}

TEST(Win32FileStoreTest, ProgramThatRunsIsInUse) {
    Win32World world;
    Win32FileStore store;
    const std::u16string path = world.Path(u"a.exe");
    wchar_t self[MAX_PATH];
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    ASSERT_TRUE(CopyFileW(self, Wide(path), TRUE));
    const std::u16string temp = store.WriteNewBeside(path, "neu");
    {
        // What the system does with the file of a program that it starts.
        const UniqueFile file(CreateFileW(Wide(path), GENERIC_READ | GENERIC_EXECUTE,
                                          FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        const UniqueHandle<HANDLE, CloseHandle> image(
            CreateFileMappingW(file.Get(), nullptr, PAGE_EXECUTE_READ | SEC_IMAGE, 0, 0, nullptr));
        ASSERT_TRUE(image);
        EXPECT_EQ(ProblemOf([&] { store.Lock(path, std::chrono::seconds(1)); }),
                  FileProblem::InUse);
        EXPECT_EQ(ProblemOf([&] { store.ReplaceWith(temp, path, {}); }), FileProblem::InUse);
    }
    EXPECT_EQ(ProblemOf([&] { store.Lock(path, std::chrono::seconds(1)); }), std::nullopt);
}

TEST(Win32FileStoreTest, LockIsAFileBesideThatGoesWithIt) {
    TestFolder folder;
    Win32FileStore store;
    folder.MakeFile(u"a.exe", "alt");
    const auto lock = store.Lock(folder.Path(u"a.exe"), std::chrono::seconds(0));
    EXPECT_EQ(folder.Names(), (std::vector<std::u16string>{u"a.exe", u"~a.exe.lock"}));
}

TEST(Win32FileStoreTest, LockIsTheSameUnderTheNameOfTheOldForm) {
    TestFolder folder;
    Win32FileStore store;
    folder.MakeFile(u"Ein langer Name.exe", "alt");
    const std::u16string path = folder.Path(u"Ein langer Name.exe");
    wchar_t buffer[MAX_PATH];
    GetShortPathNameW(Wide(path), buffer, MAX_PATH);
    const std::u16string shortPath(FromWide(buffer));
    ASSERT_NE(shortPath, path);
    EXPECT_TRUE(store.IsSameFile(path, shortPath));
    const auto lock = store.Lock(path, std::chrono::seconds(0));
    EXPECT_EQ(ProblemOf([&] { store.Lock(shortPath, std::chrono::seconds(0)); }),
              FileProblem::Locked);
}

TEST(Win32FileStoreTest, LongNamesAreLockedToo) {
    TestFolder folder;
    Win32FileStore store;
    const std::u16string name(250, u'x');
    folder.MakeFile(name, "alt");
    EXPECT_EQ(ProblemOf([&] { store.Lock(folder.Path(name), std::chrono::seconds(0)); }),
              std::nullopt);
}

TEST(Win32FileStoreTest, HardLinksAreCountedAndOneFile) {
    TestFolder folder;
    Win32FileStore store;
    folder.MakeFile(u"a.exe", "alt");
    const std::u16string other = folder.Path(u"b.exe");
    ASSERT_TRUE(CreateHardLinkW(Wide(other), Wide(folder.Path(u"a.exe")), nullptr));
    EXPECT_EQ(store.Describe(other).names, 2U);
    EXPECT_TRUE(store.IsSameFile(other, folder.Path(u"a.exe")));
}

TEST(Win32FileStoreTest, DeviceIsDescribedAsOne) {
    for (const std::u16string_view name : {u"NUL", u"COM1", u"\\\\.\\pipe\\x"}) {
        EXPECT_EQ(Win32FileStore().Describe(name).kind, FileKind::Other);
    }
    EXPECT_EQ(ProblemOf([] { Win32FileStore().WriteNewBeside(u"NUL", "x"); }),
              FileProblem::NotAFile);
}

bool IsSystem(PSID sid) {
    SID_IDENTIFIER_AUTHORITY authority = SECURITY_NT_AUTHORITY;
    PSID system = nullptr;
    AllocateAndInitializeSid(&authority, 1, SECURITY_LOCAL_SYSTEM_RID, 0, 0, 0, 0, 0, 0, 0,
                             &system);
    const bool same = EqualSid(sid, system) != 0;
    FreeSid(system);
    return same;
}

/// True when somebody has rights on a file who is neither its owner nor the system itself.
bool OthersHaveRights(const std::u16string& path) {
    std::u16string name = path;
    ACL* list = nullptr;
    PSID user = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    EXPECT_EQ(GetNamedSecurityInfoW(Wide(name), SE_FILE_OBJECT,
                                    DACL_SECURITY_INFORMATION | OWNER_SECURITY_INFORMATION, &user,
                                    nullptr, &list, nullptr, &descriptor),
              DWORD{ERROR_SUCCESS});
    const UniqueHandle<HLOCAL, LocalFree> owner(descriptor);
    bool others = list == nullptr;
    for (DWORD i = 0; list != nullptr && i < list->AceCount; ++i) {
        void* entry = nullptr;
        GetAce(list, i, &entry);
        PSID const sid = &static_cast<ACCESS_ALLOWED_ACE*>(entry)->SidStart;
        others = others || (EqualSid(sid, user) == 0 && !IsSystem(sid));
    }
    return others;
}

TEST(Win32FileStoreTest, NewFileIsItsOwnersUntilItIsInItsPlace) {
    TestFolder folder;
    Win32FileStore store;
    folder.MakeFile(u"a.exe", "alt");
    const std::u16string path = folder.Path(u"a.exe");
    ASSERT_TRUE(OthersHaveRights(path));
    const std::u16string temp = store.WriteNewBeside(path, "neu");
    EXPECT_FALSE(OthersHaveRights(temp));
    store.ReplaceWith(temp, path, {});
    EXPECT_TRUE(OthersHaveRights(path));
}

TEST(Win32FileStoreTest, ReplacedFileKeepsRightsOfItsOwn) {
    TestFolder folder;
    Win32FileStore store;
    const std::u16string path = folder.Path(u"a.exe");
    store.PlaceNew(store.WriteNewBeside(path, "alt"), path, {.ownerOnly = true});
    store.ReplaceWith(store.WriteNewBeside(path, "neu"), path, {});
    EXPECT_FALSE(OthersHaveRights(path));
}

TEST(Win32FileStoreTest, NewFileGetsTheRightsOfItsFolderUnlessItIsItsOwners) {
    TestFolder folder;
    Win32FileStore store;
    const std::u16string path = folder.Path(u"a.exe");
    store.PlaceNew(store.WriteNewBeside(path, "neu"), path, {});
    EXPECT_TRUE(OthersHaveRights(path));
    store.ReplaceWith(store.WriteNewBeside(path, "neu"), path, {.ownerOnly = true});
    EXPECT_FALSE(OthersHaveRights(path));
}

TEST(Win32FileFailureTest, CodesOfTheSystemBecomeProblems) {
    const auto problem = [](DWORD error) { return FileFailureOf(error).problem; };
    EXPECT_EQ(problem(ERROR_FILE_NOT_FOUND), FileProblem::NotFound);
    EXPECT_EQ(problem(ERROR_PATH_NOT_FOUND), FileProblem::PathNotFound);
    EXPECT_EQ(problem(ERROR_INVALID_NAME), FileProblem::PathNotFound);
    EXPECT_EQ(problem(ERROR_ACCESS_DENIED), FileProblem::AccessDenied);
    EXPECT_EQ(problem(ERROR_WRITE_PROTECT), FileProblem::ReadOnlyMedium);
    EXPECT_EQ(problem(ERROR_SHARING_VIOLATION), FileProblem::InUse);
    EXPECT_EQ(problem(ERROR_LOCK_VIOLATION), FileProblem::InUse);
    EXPECT_EQ(problem(ERROR_ALREADY_EXISTS), FileProblem::Exists);
    EXPECT_EQ(problem(ERROR_DISK_FULL), FileProblem::DiskFull);
    EXPECT_EQ(problem(ERROR_CRC), FileProblem::Device);
}

}  // namespace

}  // namespace tarvex
