#include "util/FileVersionInfo.h"

#include <gtest/gtest.h>

#include "tests/support/FakeVersionResource.h"

namespace tarvex {
namespace {

const std::u16string kPath = u"C:\\Prog\\Kunden.exe";

/// A fixed record: file version 3.1.4.15, product version 2.7.18.2818.
FakeVersionFile FileWith(std::uint32_t flags, std::uint32_t system, std::uint32_t type,
                         std::uint32_t subType) {
    FakeVersionFile file;
    file.record = {0xFEEF04BD, 0x00010000, 0x00030001, 0x0004000F, 0x00020007, 0x00120B02, 0x3F,
                   flags,      system,     type,       subType,    0,          0};
    return file;
}

class FileVersionInfoTest : public testing::Test {
protected:
    void Read(FakeVersionFile file) {
        resource.files[kPath] = std::move(file);
        info.SetFullPathName(kPath);
    }

    void ExpectEmpty() const {
        EXPECT_FALSE(info.Available());
        for (const auto* text :
             {&info.FileFlags(), &info.FileOS(), &info.FileType(), &info.FileSubType(),
              &info.Comments(), &info.CompanyName(), &info.FileDescription(), &info.FileVersion(),
              &info.InternalName(), &info.Language(), &info.LegalCopyright(),
              &info.LegalTrademarks(), &info.OriginalFilename(), &info.ProductName(),
              &info.ProductVersion()}) {
            EXPECT_EQ(u"", *text);
        }
        EXPECT_EQ(0, info.FileVersionMajor());
        EXPECT_EQ(0, info.FileVersionMinor());
    }

    FakeVersionResource resource;
    FileVersionInfo info{resource};
};

TEST_F(FileVersionInfoTest, IsEmptyBeforeAFileIsNamed) {
    EXPECT_EQ(u"", info.FullPathName());
    ExpectEmpty();
}

TEST_F(FileVersionInfoTest, MissingFileLeavesItEmptyAndKeepsThePath) {
    info.SetFullPathName(u"C:\\fehlt.dll");
    EXPECT_EQ(u"C:\\fehlt.dll", info.FullPathName());
    ExpectEmpty();
}

TEST_F(FileVersionInfoTest, RelativePathIsExpandedAndReadAtOnce) {
    resource.files[u"C:\\Aktuell\\a.dll"] = FileWith(0, 0x40004, 2, 0);
    info.SetFullPathName(u"a.dll");
    EXPECT_EQ(u"C:\\Aktuell\\a.dll", info.FullPathName());
    EXPECT_TRUE(info.Available());
}

TEST_F(FileVersionInfoTest, RefusedPathChangesNothing) {
    Read(FileWith(0, 0x40004, 1, 0));
    info.SetFullPathName(u"");
    EXPECT_EQ(kPath, info.FullPathName());
    EXPECT_TRUE(info.Available());
}

TEST_F(FileVersionInfoTest, BlockWithoutFixedRecordHasItsTextsAndLanguage) {
    FakeVersionFile file;
    file.record.reset();
    file.texts[u"\\StringFileInfo\\040704B0\\CompanyName"] = u"Müller & Söhne";
    file.texts[u"\\StringFileInfo\\040704B0\\FileVersion"] = u"3.7 deutsch";
    file.texts[u"\\StringFileInfo\\040704B0\\ProductVersion"] = u"   ";
    file.texts[u"\\StringFileInfo\\040704B0\\Comments"] = u"Größe";
    Read(file);
    EXPECT_TRUE(info.Available());
    EXPECT_EQ(u"Müller & Söhne", info.CompanyName());
    EXPECT_EQ(u"3.7 deutsch", info.FileVersion());
    EXPECT_EQ(u"Größe", info.Comments());
    EXPECT_EQ(u"Deutsch (Deutschland)", info.Language());
    EXPECT_EQ(u"", info.ProductVersion());
    EXPECT_EQ(u"", info.FileFlags());
    EXPECT_EQ(u"", info.FileOS());
    EXPECT_EQ(u"", info.FileType());
    EXPECT_EQ(u"", info.FileSubType());
    EXPECT_EQ(0, info.FileVersionMajor());
    EXPECT_EQ(0, info.FileVersionMinor());
}

TEST_F(FileVersionInfoTest, FixedRecordIsReadOnlyWhole) {
    for (const std::size_t size : {0U, 44U, 51U}) {
        FakeVersionFile file = FileWith(1, 0x40004, 2, 0);
        file.recordSize = size;
        file.texts[u"\\StringFileInfo\\040704B0\\Comments"] = u"Größe";
        Read(file);
        EXPECT_TRUE(info.Available());
        EXPECT_EQ(u"Größe", info.Comments());
        EXPECT_EQ(u"", info.FileVersion()) << size;
        EXPECT_EQ(u"", info.FileOS());
    }
    FakeVersionFile longer = FileWith(1, 0x40004, 2, 0);
    longer.recordSize = 56;
    Read(longer);
    EXPECT_EQ(u"3.01.04.0015", info.FileVersion());
}

TEST_F(FileVersionInfoTest, BlockWithNothingInItIsAvailable) {
    FakeVersionFile file;
    file.record.reset();
    file.translation.reset();
    Read(file);
    EXPECT_TRUE(info.Available());
    EXPECT_EQ(u"", info.FileVersion());
    EXPECT_EQ(u"", info.ProductVersion());
    EXPECT_EQ(u"", info.Language());
}

TEST_F(FileVersionInfoTest, AllTenTextsAreReadInOrderUnderTheFirstTranslation) {
    for (const auto* name : {u"CompanyName", u"FileDescription", u"FileVersion", u"InternalName",
                             u"LegalCopyright", u"LegalTrademarks", u"OriginalFilename",
                             u"ProductName", u"ProductVersion", u"Comments"}) {
        resource.SetText(kPath, name, std::u16string(name) + u" ä");
    }
    info.SetFullPathName(kPath);
    EXPECT_EQ(u"CompanyName ä", info.CompanyName());
    EXPECT_EQ(u"FileDescription ä", info.FileDescription());
    EXPECT_EQ(u"FileVersion ä", info.FileVersion());
    EXPECT_EQ(u"InternalName ä", info.InternalName());
    EXPECT_EQ(u"LegalCopyright ä", info.LegalCopyright());
    EXPECT_EQ(u"LegalTrademarks ä", info.LegalTrademarks());
    EXPECT_EQ(u"OriginalFilename ä", info.OriginalFilename());
    EXPECT_EQ(u"ProductName ä", info.ProductName());
    EXPECT_EQ(u"ProductVersion ä", info.ProductVersion());
    EXPECT_EQ(u"Comments ä", info.Comments());
    EXPECT_EQ(u"Deutsch (Deutschland)", info.Language());

    const std::u16string table = u"\\StringFileInfo\\040704B0\\";
    const std::vector<std::u16string> asked{u"\\",
                                            u"\\VarFileInfo\\Translation",
                                            table + u"CompanyName",
                                            table + u"FileDescription",
                                            table + u"FileVersion",
                                            table + u"InternalName",
                                            table + u"LegalCopyright",
                                            table + u"LegalTrademarks",
                                            table + u"OriginalFilename",
                                            table + u"ProductName",
                                            table + u"ProductVersion",
                                            table + u"Comments"};
    EXPECT_EQ(asked, resource.log);
}

TEST_F(FileVersionInfoTest, TranslationKeyIsUpperCaseWithLeadingZeros) {
    FakeVersionFile file;
    file.translation = std::string("\x0C\x0A\xE4\x00\x07\x04\xB0\x04", 8);
    file.texts[u"\\StringFileInfo\\0A0C00E4\\ProductName"] = u"erste";
    file.texts[u"\\StringFileInfo\\040704B0\\ProductName"] = u"zweite";
    file.texts[u"\\StringFileInfo\\040704B0\\Comments"] = u"zweite";
    Read(file);
    EXPECT_EQ(u"erste", info.ProductName());
    EXPECT_EQ(u"", info.Comments());
    EXPECT_EQ(u"", info.Language());
}

TEST_F(FileVersionInfoTest, WithoutTranslationThereAreFixedDataOnly) {
    for (const auto& translation :
         {std::optional<std::string>(), std::optional<std::string>("\x07\x04\xB0")}) {
        FakeVersionFile file = FileWith(1, 0x40004, 2, 0);
        file.translation = translation;
        file.texts[u"\\StringFileInfo\\040704B0\\ProductName"] = u"Tarvex";
        Read(file);
        EXPECT_TRUE(info.Available());
        EXPECT_EQ(u"DLL", info.FileType());
        EXPECT_EQ(u"Debug ", info.FileFlags());
        EXPECT_EQ(u"3.01.04.0015", info.FileVersion());
        EXPECT_EQ(u"", info.ProductName());
        EXPECT_EQ(u"", info.Language());
    }
}

TEST_F(FileVersionInfoTest, BlankVersionTextsAreMadeFromTheFixedData) {
    FakeVersionFile file = FileWith(0, 0, 1, 0);
    file.texts[u"\\StringFileInfo\\040704B0\\FileVersion"] = u"   ";
    Read(file);
    EXPECT_EQ(u"3.01.04.0015", info.FileVersion());
    EXPECT_EQ(u"2.07.18.2818", info.ProductVersion());
    EXPECT_EQ(3, info.FileVersionMajor());
    EXPECT_EQ(1, info.FileVersionMinor());
}

TEST_F(FileVersionInfoTest, VersionTextKeepsItsBlanks) {
    resource.SetText(kPath, u"FileVersion", u" 3.0 ");
    info.SetFullPathName(kPath);
    EXPECT_EQ(u" 3.0 ", info.FileVersion());
}

TEST_F(FileVersionInfoTest, VersionPartsAreUnsigned) {
    FakeVersionFile file = FileWith(0, 0, 1, 0);
    (*file.record)[2] = 0xFFFE8000;
    (*file.record)[3] = 0xFFFFFFFF;
    Read(file);
    EXPECT_EQ(65534, info.FileVersionMajor());
    EXPECT_EQ(32768, info.FileVersionMinor());
    EXPECT_EQ(u"65534.32768.65535.65535", info.FileVersion());
}

TEST_F(FileVersionInfoTest, FlagsAreNamedInOrderWithoutRegardToTheMask) {
    const std::pair<std::uint32_t, std::u16string> cases[] = {
        {0, u""},
        {0x01, u"Debug "},
        {0x02, u"PreRel "},
        {0x04, u"Patched "},
        {0x08, u"Private "},
        {0x10, u"Info "},
        {0x20, u"Special "},
        {0x40, u""},
        {0x21, u"Debug Special "},
        {0xFFFFFFFF, u"Debug PreRel Patched Private Info Special "}};
    for (const auto& [flags, names] : cases) {
        FakeVersionFile file = FileWith(flags, 0, 1, 0);
        (*file.record)[6] = 0;
        Read(file);
        EXPECT_EQ(names, info.FileFlags()) << flags;
    }
}

TEST_F(FileVersionInfoTest, OperatingSystemsAreNamedWhole) {
    const std::pair<std::uint32_t, std::u16string> cases[] = {{0x10001, u"DOS-Win16"},
                                                              {0x10004, u"DOS-Win32"},
                                                              {0x20002, u"OS/2-16 PM-16"},
                                                              {0x30003, u"OS/2-16 PM-32"},
                                                              {0x40004, u"NT-Win32"},
                                                              {0x40000, u"Unknown"},
                                                              {4, u"Unknown"},
                                                              {0, u"Unknown"},
                                                              {0x10000, u"Unknown"}};
    for (const auto& [system, name] : cases) {
        Read(FileWith(0, system, 1, 0));
        EXPECT_EQ(name, info.FileOS()) << system;
    }
}

TEST_F(FileVersionInfoTest, FileTypesAreNamed) {
    const std::u16string names[] = {u"Unknown", u"Application", u"DLL", u"Driver", u"Font",
                                    u"VxD",     u"Unknown",     u"Lib", u"Unknown"};
    for (std::uint32_t type = 0; type < std::size(names); ++type) {
        Read(FileWith(0, 0, type, 99));
        EXPECT_EQ(names[type], info.FileType()) << type;
        EXPECT_EQ(u"", info.FileSubType()) << type;
    }
    Read(FileWith(0, 0, 0xFFFFFFFF, 1));
    EXPECT_EQ(u"Unknown", info.FileType());
}

TEST_F(FileVersionInfoTest, DriversHaveASubtype) {
    const std::u16string names[] = {u"Unknown",      u"Printer drv", u"Keyboard drv",
                                    u"Language drv", u"Display drv", u"Mouse drv",
                                    u"Network drv",  u"System drv",  u"Installable",
                                    u"Sound drv",    u"Comm drv",    u""};
    for (std::uint32_t subType = 0; subType < std::size(names); ++subType) {
        Read(FileWith(0, 0, 3, subType));
        EXPECT_EQ(u"Driver", info.FileType());
        EXPECT_EQ(names[subType], info.FileSubType()) << subType;
    }
}

TEST_F(FileVersionInfoTest, FontsHaveASubtype) {
    const std::u16string names[] = {u"", u"Raster Font", u"Vector Font", u"TrueType Font", u""};
    for (std::uint32_t subType = 0; subType < std::size(names); ++subType) {
        Read(FileWith(0, 0, 4, subType));
        EXPECT_EQ(u"Font", info.FileType());
        EXPECT_EQ(names[subType], info.FileSubType()) << subType;
    }
}

TEST_F(FileVersionInfoTest, ProgramsAndLibrariesHaveNoSubtype) {
    for (const std::uint32_t type : {1U, 2U, 5U, 7U}) {
        Read(FileWith(0, 0, type, 1));
        EXPECT_EQ(u"", info.FileSubType()) << type;
    }
}

TEST_F(FileVersionInfoTest, NextFileResetsEverything) {
    resource.SetText(kPath, u"ProductName", u"Tarvex");
    info.SetFullPathName(kPath);
    ASSERT_EQ(u"Tarvex", info.ProductName());
    info.SetFullPathName(u"C:\\ohne.txt");
    ExpectEmpty();
}

TEST_F(FileVersionInfoTest, RefreshReadsTheSamePathAgain) {
    Read(FileWith(0, 0, 1, 0));
    resource.files.clear();
    info.Refresh();
    EXPECT_EQ(kPath, info.FullPathName());
    ExpectEmpty();
    resource.SetText(kPath, u"Comments", u"wieder da");
    info.Refresh();
    EXPECT_EQ(u"wieder da", info.Comments());
}

}  // namespace
}  // namespace tarvex
