#include "launch/RegistryKeyList.h"

#include "tests/launch/LaunchFixture.h"

namespace tarvex {
namespace {

using U16List = std::vector<std::u16string>;

/// All fields of an entry in one text that failures show readably.
std::string Fields(const KeyListEntry& entry) {
    std::u16string all(HKeyName(entry.root));
    for (const std::u16string& field :
         {entry.keyPath, entry.valueName, entry.subFolder, entry.fileName}) {
        all.append(u"|").append(field);
    }
    return text::ToUtf8(all);
}

std::string ParsedFields(std::u16string_view entry) {
    const KeyListParse parse = ParseKeyListEntry(entry);
    return !parse.error ? Fields(parse.entry)
                        : "error " + std::to_string(static_cast<int>(*parse.error));
}

}  // namespace

TEST(HKeyTest, RootKeysHaveShortNames) {
    EXPECT_EQ(cuTarvex::HKeyEnum2String(INT32_MIN), u"HKCR");
    EXPECT_EQ(cuTarvex::HKeyEnum2String(INT32_MIN + 1), u"HKCU");
    EXPECT_EQ(cuTarvex::HKeyEnum2String(INT32_MIN + 2), u"HKLM");
    EXPECT_EQ(cuTarvex::HKeyEnum2String(INT32_MIN + 3), u"HKU");
}

TEST(HKeyTest, OtherNumbersHaveNoName) {
    for (const std::int32_t number : {-1, 0, 1, INT32_MIN + 4, INT32_MAX}) {
        EXPECT_EQ(cuTarvex::HKeyEnum2String(number), u"");
    }
}

TEST(HKeyTest, ShortAndLongNamesAreKnownInAnyCase) {
    EXPECT_EQ(cuTarvex::HKeyString2Enum(u"HKEY_LOCAL_MACHINE"), kHKeyLocalMachine);
    EXPECT_EQ(cuTarvex::HKeyString2Enum(u"hklm"), kHKeyLocalMachine);
    EXPECT_EQ(cuTarvex::HKeyString2Enum(u"HKey_Classes_Root"), kHKeyClassesRoot);
    EXPECT_EQ(cuTarvex::HKeyString2Enum(u"HKCR"), kHKeyClassesRoot);
    EXPECT_EQ(cuTarvex::HKeyString2Enum(u"HKEY_USERS"), kHKeyUsers);
    EXPECT_EQ(cuTarvex::HKeyString2Enum(u"hKu"), kHKeyUsers);
    EXPECT_EQ(cuTarvex::HKeyString2Enum(u"hkey_current_user"), kHKeyCurrentUser);
    EXPECT_EQ(cuTarvex::HKeyString2Enum(u"HKCU"), kHKeyCurrentUser);
}

TEST(HKeyTest, UnknownNameIsNoRoot) {
    EXPECT_EQ(cuTarvex::HKeyString2Enum(u"HKEY_DYN_DATA"), kNoHKey);
    for (const auto* name : {u"HKLM ", u"xHKLM", u"HKEY_USERSx", u"xHKEY_USERS"}) {
        EXPECT_EQ(cuTarvex::HKeyString2Enum(name), kNoHKey) << text::ToUtf8(name);
    }
    EXPECT_EQ(cuTarvex::HKeyString2Enum(u""), kNoHKey);
}

using RegListBuildTest = LaunchFixture;

TEST_F(RegListBuildTest, EntryNamesRootKeyAndValue) {
    EXPECT_EQ(tarvex_.RegListBuild(u"SOFTWARE\\A", u"P", u"", u"", kHKeyLocalMachine),
              u"HKLM\\SOFTWARE\\A\\P");
}

TEST_F(RegListBuildTest, RootNameIsWrittenInItsShortForm) {
    EXPECT_EQ(tarvex_.RegListBuild(u"A", u"P", u"", u"", kNoHKey, u"HKEY_CURRENT_USER"),
              u"HKCU\\A\\P");
    EXPECT_EQ(tarvex_.RegListBuild(u"A", u"P", u"", u"", kNoHKey, u"hku"), u"HKU\\A\\P");
}

TEST_F(RegListBuildTest, RootNumberWinsOverTheName) {
    EXPECT_EQ(tarvex_.RegListBuild(u"A", u"P", u"", u"", kHKeyClassesRoot, u"HKLM"), u"HKCR\\A\\P");
    EXPECT_EQ(tarvex_.RegListBuild(u"A", u"P", u"", u"", kHKeyClassesRoot, u"FOO"), u"HKCR\\A\\P");
}

TEST_F(RegListBuildTest, MissingOrUnknownRootNumberRaisesError1) {
    for (const std::int32_t root : {kNoHKey, 0, INT32_MIN + 4}) {
        EXPECT_THAT(ErrorOf([&] { tarvex_.RegListBuild(u"A", u"P", u"", u"", root); }),
                    IsError(-2147220479, "Tarvex/cuTarvex: RegListBuild",
                            "Der HKey wurde nicht angegeben."));
    }
}

TEST_F(RegListBuildTest, UnknownRootNameRaisesError16WithTheName) {
    EXPECT_THAT(
        ErrorOf([&] { tarvex_.RegListBuild(u"A", u"P", u"", u"", kNoHKey, u"FOO"); }),
        IsError(-2147220464, "Tarvex/cuTarvex: RegListBuild", "'FOO' ist kein zulässiger Wert."));
}

TEST_F(RegListBuildTest, SeparatorAfterTheKeyPathIsAddedOnce) {
    EXPECT_EQ(tarvex_.RegListBuild(u"A\\", u"P", u"", u"", kHKeyLocalMachine), u"HKLM\\A\\P");
    EXPECT_EQ(tarvex_.RegListBuild(u"", u"P", u"", u"", kHKeyLocalMachine), u"HKLM\\P");
}

TEST_F(RegListBuildTest, EmptyValueNameLeavesASeparatorAtTheEnd) {
    EXPECT_EQ(tarvex_.RegListBuild(u"A", u"", u"", u"", kHKeyLocalMachine), u"HKLM\\A\\");
}

TEST_F(RegListBuildTest, SubFolderStandsBeforeTheFileName) {
    EXPECT_EQ(tarvex_.RegListBuild(u"A", u"P", u"k.mdb", u"Daten", kHKeyLocalMachine),
              u"HKLM\\A\\P%|SubDir|%Daten%|Filename%|k.mdb");
    EXPECT_EQ(tarvex_.RegListBuild(u"A", u"P", u"", u"Daten", kHKeyLocalMachine),
              u"HKLM\\A\\P%|SubDir|%Daten");
    EXPECT_EQ(tarvex_.RegListBuild(u"A", u"P", u"k.mdb", u"", kHKeyLocalMachine),
              u"HKLM\\A\\P%|Filename%|k.mdb");
}

TEST(KeyListParseTest, AllFieldsAreFound) {
    EXPECT_EQ(ParsedFields(u"HKLM\\SOFTWARE\\Firma\\Programm\\InstallPath%|SubDir|%Daten%|Filename%"
                           u"|Kunden.mdb"),
              "HKLM|SOFTWARE\\Firma\\Programm|InstallPath|Daten|Kunden.mdb");
}

TEST(KeyListParseTest, MarkersAndRootAreFoundInAnyCase) {
    EXPECT_EQ(ParsedFields(u"hkey_Users\\A\\V%|subdir|%s%|FILENAME%|f"), "HKU|A|V|s|f");
}

TEST(KeyListParseTest, OnlyTheFirstMarkerDivides) {
    EXPECT_EQ(ParsedFields(u"HKLM\\A\\V%|Filename%|a%|Filename%|b"), "HKLM|A|V||a%|Filename%|b");
    EXPECT_EQ(ParsedFields(u"HKLM\\A\\V%|SubDir|%a%|SubDir|%b%|Filename%|f"),
              "HKLM|A|V|a%|SubDir|%b|f");
}

TEST(KeyListParseTest, SubFolderMarkerBehindTheFileNameBelongsToIt) {
    EXPECT_EQ(ParsedFields(u"HKLM\\A\\V%|Filename%|f%|SubDir|%s"), "HKLM|A|V||f%|SubDir|%s");
}

TEST(KeyListParseTest, EntryThatEndsInBackslashNamesTheDefaultValue) {
    EXPECT_EQ(ParsedFields(u"HKCR\\A\\B\\"), "HKCR|A\\B|||");
    EXPECT_EQ(ParsedFields(u"HKCR\\A\\%|Filename%|f"), "HKCR|A|||f");
}

TEST(KeyListParseTest, EntryWithoutKeyIsError4) {
    for (const std::u16string_view entry :
         {u"", u"HKLM", u"HKLM\\", u"HKLM\\P", u"\\", u"%|Filename%|f", u"HKLM%|SubDir|%a\\b\\c"}) {
        EXPECT_EQ(ParsedFields(entry), "error 4") << text::ToUtf8(entry);
    }
}

TEST(KeyListParseTest, EntryWithoutRootIsError8) {
    for (const std::u16string_view entry :
         {u"FOO\\Key\\Value", u"\\Key\\Value", u" HKLM\\Key\\Value", u"\\\\server\\share"}) {
        EXPECT_EQ(ParsedFields(entry), "error 8") << text::ToUtf8(entry);
    }
}

TEST(KeyListParseTest, FailedEntryLeavesNoFields) {
    const KeyListEntry entry = ParseKeyListEntry(u"FOO\\A\\V%|SubDir|%s%|Filename%|f").entry;
    EXPECT_EQ(Fields(entry), "||||");
    EXPECT_EQ(entry.root, kNoHKey);
}

using RegListParseTest = LaunchFixture;

TEST_F(RegListParseTest, BuiltEntryIsParsedBack) {
    const std::u16string entry =
        tarvex_.RegListBuild(u"SOFTWARE\\A", u"P", u"k.mdb", u"Daten", kHKeyLocalMachine);
    EXPECT_EQ(Fields(tarvex_.RegListParse(entry)), "HKLM|SOFTWARE\\A|P|Daten|k.mdb");
}

TEST_F(RegListParseTest, EntryBuiltWithoutKeyPathCannotBeParsedBack) {
    const std::u16string entry = tarvex_.RegListBuild(u"", u"P", u"", u"", kHKeyLocalMachine);
    EXPECT_THAT(ErrorOf([&] { tarvex_.RegListParse(entry); }),
                IsError(-2147220476, "Tarvex/cuTarvex: RegListParse",
                        "Der Schlüssellisten-Eintrag 'HKLM\\P' ist fehlerhaft bzw. kann nicht "
                        "interpretiert werden."));
}

TEST_F(RegListParseTest, EntryWithoutRootRaisesError8WithTheWholeEntry) {
    EXPECT_THAT(ErrorOf([&] { tarvex_.RegListParse(u"FOO\\Key\\Value%|Filename%|f"); }),
                IsError(-2147220472, "Tarvex/cuTarvex: RegListParse",
                        "Der Schlüssellisten-Eintrag 'FOO\\Key\\Value%|Filename%|f' enthält keinen "
                        "Verweis auf den HKey."));
}

using RegListTest = LaunchFixture;

TEST_F(RegListTest, EntriesAreAddedWithTheMarkerBetweenThem) {
    tarvex_.RegListAdd(0, u"A");
    EXPECT_EQ(tarvex_.Properties().accRegListString, u"A");
    tarvex_.RegListAdd(0, u"B");
    EXPECT_EQ(tarvex_.Properties().accRegListString, u"A%|%B");
}

TEST_F(RegListTest, SelectorChoosesTheList) {
    tarvex_.RegListAdd(0, u"A");
    tarvex_.RegListAdd(1, u"B");
    tarvex_.RegListAdd(2, u"C");
    EXPECT_EQ(tarvex_.Properties().accRegListString, u"A");
    EXPECT_EQ(tarvex_.Properties().dbRegListString, u"B");
    EXPECT_EQ(tarvex_.Properties().systemDBRegListString, u"C");
    EXPECT_EQ(tarvex_.RegListArray(0), U16List{u"A"});
    EXPECT_EQ(tarvex_.RegListArray(1), U16List{u"B"});
    EXPECT_EQ(tarvex_.RegListArray(2), U16List{u"C"});
}

TEST_F(RegListTest, EmptyEntryAndUnknownSelectorAddNothing) {
    tarvex_.RegListAdd(0, u"A");
    tarvex_.RegListAdd(0, u"");
    tarvex_.RegListAdd(3, u"B");
    tarvex_.RegListAdd(-1, u"B");
    EXPECT_EQ(tarvex_.Properties().accRegListString, u"A");
    EXPECT_EQ(tarvex_.Properties().dbRegListString, u"");
    EXPECT_EQ(tarvex_.Properties().systemDBRegListString, u"");
}

TEST_F(RegListTest, EmptyListHasNoEntries) {
    EXPECT_EQ(tarvex_.RegListArray(0), U16List());
}

TEST_F(RegListTest, UnknownSelectorRaisesError16) {
    EXPECT_THAT(
        ErrorOf([&] { tarvex_.RegListArray(3); }),
        IsError(-2147220464, "Tarvex/cuTarvex: RegListArray", "'3' ist kein zulässiger Wert."));
    EXPECT_THAT(
        ErrorOf([&] { tarvex_.RegListArray(-1); }),
        IsError(-2147220464, "Tarvex/cuTarvex: RegListArray", "'-1' ist kein zulässiger Wert."));
}

TEST_F(RegListTest, ChangedMarkersHoldForAllListOperations) {
    tarvex_.Properties().markers.list = u"&&";
    tarvex_.Properties().markers.subFolder = u"<sub>";
    tarvex_.Properties().markers.fileName = u"<file>";
    const std::u16string entry = tarvex_.RegListBuild(u"A", u"P", u"f", u"s", kHKeyLocalMachine);
    EXPECT_EQ(entry, u"HKLM\\A\\P<sub>s<file>f");
    EXPECT_EQ(Fields(tarvex_.RegListParse(entry)), "HKLM|A|P|s|f");
    tarvex_.RegListAdd(1, entry);
    tarvex_.RegListAdd(1, u"B%|%C");
    EXPECT_EQ(tarvex_.Properties().dbRegListString, u"HKLM\\A\\P<sub>s<file>f&&B%|%C");
    EXPECT_EQ(tarvex_.RegListArray(1), (U16List{entry, u"B%|%C"}));
}

TEST_F(RegListTest, FileNameThatBeginsWithPercentBreaksTheList) {
    tarvex_.RegListAdd(1, u"HKLM\\A\\V%|Filename%|%x.mdb");
    EXPECT_EQ(tarvex_.RegListArray(1), (U16List{u"HKLM\\A\\V%|Filename", u"x.mdb"}));
}

TEST_F(RegListTest, EmptyFileNameFieldBreaksTheNextEntry) {
    tarvex_.RegListAdd(1, u"HKLM\\A\\V%|Filename%|");
    tarvex_.RegListAdd(1, u"HKLM\\B\\V");
    EXPECT_EQ(tarvex_.RegListArray(1), (U16List{u"HKLM\\A\\V%|Filename", u"|%HKLM\\B\\V"}));
}

TEST_F(RegListTest, EmptySubFolderFieldDoesNotBreakTheList) {
    tarvex_.RegListAdd(1, u"HKLM\\A\\V%|SubDir|%%|Filename%|x");
    EXPECT_EQ(tarvex_.RegListArray(1).size(), 1U);
}

class ReadRegistryTextTest : public ::testing::Test, protected LaunchWorld {
protected:
    std::u16string Read(std::u16string_view valueName) {
        return ReadRegistryText(environment, kHKeyLocalMachine, u"SOFTWARE\\Firma", valueName);
    }

    void Store(std::u16string_view valueName, std::string bytes) {
        registry.SetText(kHKeyLocalMachine, u"SOFTWARE\\Firma", valueName, std::move(bytes));
    }
};

TEST_F(ReadRegistryTextTest, TextIsCutBeforeItsFirstZeroAndNotTrimmed) {
    Store(u"Pfad", std::string(" C:\\Office \0Rest\0", 17));
    EXPECT_EQ(Read(u"Pfad"), u" C:\\Office ");
}

TEST_F(ReadRegistryTextTest, TextWithoutZeroIsTrimmedOfBlanks) {
    Store(u"Pfad", "  \tC:\\Office  ");
    EXPECT_EQ(Read(u"Pfad"), u"\tC:\\Office");
}

TEST_F(ReadRegistryTextTest, EmptyTextsAreEmpty) {
    Store(u"Leer", "");
    Store(u"Null", std::string(1, '\0'));
    EXPECT_EQ(Read(u"Leer"), u"");
    EXPECT_EQ(Read(u"Null"), u"");
}

TEST_F(ReadRegistryTextTest, BytesAreOfTheCodePage) {
    Store(u"Pfad", std::string("D:\\M\xFCller \x80\0", 12));
    EXPECT_EQ(Read(u"Pfad"), u"D:\\Müller €");
}

TEST_F(ReadRegistryTextTest, MissingValueAndOtherTypesAreEmpty) {
    registry.SetOther(kHKeyLocalMachine, u"SOFTWARE\\Firma", u"Zahl");
    EXPECT_EQ(Read(u"Zahl"), u"");
    EXPECT_EQ(Read(u"Fehlt"), u"");
    EXPECT_EQ(ReadRegistryText(environment, kHKeyUsers, u"Fehlt", u"Pfad"), u"");
}

TEST_F(ReadRegistryTextTest, ReadWithoutRootRaisesError1) {
    ui.pointerDefault = false;
    EXPECT_THAT(ErrorOf([&] { ReadRegistryText(environment, kNoHKey, u"A", u"P"); }),
                IsError(-2147220479, "Tarvex/cuTarvex", "Der HKey wurde nicht angegeben."));
    EXPECT_TRUE(registry.log.empty());
    EXPECT_TRUE(ui.pointerDefault);
}

}  // namespace tarvex
