#include "window/keylist/RegistryKeyText.h"

#include <gtest/gtest.h>

#include "text/Text.h"

namespace tarvex {
namespace {

/// "HKLM|SOFTWARE\X", "" for nothing, in UTF-8.
std::string Key(std::u16string_view text) {
    const auto key = SplitRegistryKey(text);
    return key ? text::ToUtf8(std::u16string(HKeyName(key->root)) + u"|" + key->path) : "";
}

/// "HKLM|SOFTWARE\X|Wert|Unterordner|Datei" and "!" behind a whole entry.
std::string Entry(std::u16string_view text, TextPlace place) {
    const auto copied = EntryFromText(text, place);
    if (!copied) {
        return "";
    }
    const KeyListEntry& entry = copied->entry;
    return text::ToUtf8(std::u16string(HKeyName(entry.root)) + u"|" + entry.keyPath + u"|" +
                        entry.valueName + u"|" + entry.subFolder + u"|" + entry.fileName +
                        (copied->isWhole ? u"!" : u""));
}

TEST(RegistryKeyTextTest, FormsInWhichKeysAreCopied) {
    const std::string key = "HKLM|SOFTWARE\\Firma X";
    EXPECT_EQ(Key(u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma X"), key);
    EXPECT_EQ(Key(u"HKLM\\SOFTWARE\\Firma X"), key);
    EXPECT_EQ(Key(u"hklm\\SOFTWARE\\Firma X\\"), key);
    EXPECT_EQ(Key(u"Computer\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma X"), key);
    EXPECT_EQ(Key(u"Computer\\HKLM\\SOFTWARE\\Firma X"), key);
    EXPECT_EQ(Key(u"Arbeitsplatz\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma X"), key);
    EXPECT_EQ(Key(u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma X]"), key);
    EXPECT_EQ(Key(u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma X]\r\n\"Pfad\"=\"C:\\\\Daten\""), key);
    EXPECT_EQ(Key(u"\"HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma X\""), key);
    EXPECT_EQ(Key(u" \tHKEY_LOCAL_MACHINE\\SOFTWARE\\Firma X \r\n"), key);
    EXPECT_EQ(Key(u"HKLM:\\SOFTWARE\\Firma X"), key);
    EXPECT_EQ(Key(u"Registry::HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma X"), key);
    EXPECT_EQ(Key(u"Microsoft.PowerShell.Core\\Registry::HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma X"),
              key);
}

TEST(RegistryKeyTextTest, EveryRootKey) {
    EXPECT_EQ(Key(u"HKEY_CURRENT_USER\\A"), "HKCU|A");
    EXPECT_EQ(Key(u"HKEY_CLASSES_ROOT\\A"), "HKCR|A");
    EXPECT_EQ(Key(u"HKEY_USERS\\A"), "HKU|A");
    EXPECT_EQ(Key(u"HKCU:\\A"), "HKCU|A");
}

TEST(RegistryKeyTextTest, OtherTextsAreNoKeys) {
    for (const std::u16string_view text :
         {u"", u"HKLM", u"SOFTWARE\\Firma", u"C:\\Daten", u"\\\\server\\HKLM\\x",
          u"HKEY_CURRENT_CONFIG\\A", u"SOFTWARE\\HKCU\\A", u"[", u"::", u"Computer\\"}) {
        EXPECT_EQ(Key(text), "") << text::ToUtf8(text);
    }
}

TEST(RegistryKeyTextTest, StoredEntryInPlaceOfAnEntry) {
    EXPECT_EQ(Entry(u"HKLM\\A\\B\\C", TextPlace::List), "HKLM|A\\B|C||!");
    EXPECT_EQ(Entry(u"hklm\\A\\\r\n", TextPlace::List), "HKLM|A|||!");
    EXPECT_EQ(Entry(u"HKLM\\A\\C%|SubDir|%D%|Filename%|E F.mdb", TextPlace::List),
              "HKLM|A|C|D|E F.mdb!");
    EXPECT_EQ(Entry(u"HKEY_USERS\\A\\C%|Filename%|E", TextPlace::List), "HKU|A|C||E!");
}

TEST(RegistryKeyTextTest, LongNameInPlaceOfAnEntryIsAKey) {
    EXPECT_EQ(Entry(u"HKEY_LOCAL_MACHINE\\A\\B\\C", TextPlace::List), "HKLM|A\\B\\C|||");
    EXPECT_EQ(Entry(u"HKCU:\\A\\B", TextPlace::List), "HKCU|A\\B|||");
}

TEST(RegistryKeyTextTest, OnlyMarksTellAStoredEntryFromAKey) {
    EXPECT_EQ(Entry(u"HKLM\\A\\B\\C", TextPlace::Key), "HKLM|A\\B\\C|||");
    EXPECT_EQ(Entry(u"HKLM\\A\\C%|filename%|E", TextPlace::Key), "HKLM|A|C||E!");
    EXPECT_EQ(Entry(u"HKLM\\A\\C%|SubDir|%E", TextPlace::Key), "HKLM|A|C|E|!");
    EXPECT_EQ(Entry(u"SOFTWARE\\A%|Filename%|E", TextPlace::Key), "");
    EXPECT_EQ(Entry(u"SOFTWARE\\A", TextPlace::Key), "");
}

}  // namespace
}  // namespace tarvex
