#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/Registry.h"

namespace tarvex {

/// What every Registry does. A World makes keys and values: SetText, SetOther and AddKey as those
/// of FakeRegistry, and `registry()`.
template <class World>
class RegistryContract : public testing::Test {
protected:
    using Names = std::vector<std::u16string>;
    static constexpr std::u16string_view kKey = u"SOFTWARE\\Firma";

    std::optional<std::string> Read(std::u16string_view valueName,
                                    std::u16string_view key = kKey) const {
        return world.registry().ReadText(kHKeyLocalMachine, key, valueName);
    }
    Names List(std::size_t maxName = 255, std::size_t maxData = 4096) const {
        return world.registry().ListValueNames(kHKeyLocalMachine, kKey, maxName, maxData);
    }
    void Set(std::u16string_view name, std::string bytes) {
        world.SetText(kHKeyLocalMachine, kKey, name, std::move(bytes));
    }

    World world;
};

TYPED_TEST_SUITE_P(RegistryContract);

TYPED_TEST_P(RegistryContract, TextComesWithItsClosingZero) {
    this->Set(u"Pfad", std::string("C:\\Daten\0", 9));
    EXPECT_EQ(this->Read(u"Pfad"), std::string("C:\\Daten\0", 9));
}

TYPED_TEST_P(RegistryContract, TextStoredWithoutZeroComesWithoutOne) {
    this->Set(u"Pfad", " C:\\Daten ");
    EXPECT_EQ(this->Read(u"Pfad"), " C:\\Daten ");
}

TYPED_TEST_P(RegistryContract, TextBehindAZeroIsKept) {
    this->Set(u"Pfad", std::string("a\0b\0", 4));
    EXPECT_EQ(this->Read(u"Pfad"), std::string("a\0b\0", 4));
}

TYPED_TEST_P(RegistryContract, EmptyTextIsNoMissingText) {
    this->Set(u"Pfad", std::string(1, '\0'));
    EXPECT_EQ(this->Read(u"Pfad"), std::string(1, '\0'));
}

TYPED_TEST_P(RegistryContract, LongTextComesWhole) {
    const std::string text = std::string(5000, 'x') + '\0';
    this->Set(u"Pfad", text);
    EXPECT_EQ(this->Read(u"Pfad"), text);
}

TYPED_TEST_P(RegistryContract, EmptyValueNameIsTheDefaultValue) {
    this->Set(u"", std::string("Standard\0", 9));
    EXPECT_EQ(this->Read(u""), std::string("Standard\0", 9));
}

TYPED_TEST_P(RegistryContract, NamesAreFoundWithoutRegardToCase) {
    this->Set(u"Pfad", std::string("x\0", 2));
    EXPECT_EQ(this->Read(u"PFAD", u"software\\FIRMA"), std::string("x\0", 2));
}

TYPED_TEST_P(RegistryContract, UmlautsPassInKeyNameAndData) {
    this->world.SetText(kHKeyCurrentUser, u"Software\\Müller & Söhne", u"Größe",
                        std::string("C:\\\xC4pfel \x80\0\0", 12));
    EXPECT_EQ(
        this->world.registry().ReadText(kHKeyCurrentUser, u"Software\\Müller & Söhne", u"Größe"),
        std::string("C:\\\xC4pfel \x80\0\0", 12));
}

TYPED_TEST_P(RegistryContract, RootsAreKeptApart) {
    this->Set(u"Pfad", std::string("x\0", 2));
    const Registry& registry = this->world.registry();
    EXPECT_EQ(registry.ReadText(kHKeyCurrentUser, this->kKey, u"Pfad"), std::nullopt);
    EXPECT_EQ(registry.ReadText(kNoHKey, this->kKey, u"Pfad"), std::nullopt);
    EXPECT_EQ(registry.ReadText(0, this->kKey, u"Pfad"), std::nullopt);
    EXPECT_TRUE(registry.ListValueNames(kNoHKey, this->kKey, 255, 4096).empty());
}

TYPED_TEST_P(RegistryContract, MissingKeyOrValueGivesNoText) {
    this->Set(u"Pfad", std::string("x\0", 2));
    EXPECT_EQ(this->Read(u"Pfa"), std::nullopt);
    EXPECT_EQ(this->Read(u""), std::nullopt);
    EXPECT_EQ(this->Read(u"Pfad", u"SOFTWARE\\Firm"), std::nullopt);
}

TYPED_TEST_P(RegistryContract, ValueOfAnotherTypeIsNoText) {
    this->world.SetOther(kHKeyLocalMachine, this->kKey, u"Zahl", 4);
    this->world.SetOther(kHKeyLocalMachine, this->kKey, u"Viel", 5000);
    EXPECT_EQ(this->Read(u"Zahl"), std::nullopt);
    EXPECT_EQ(this->Read(u"Viel"), std::nullopt);
}

TYPED_TEST_P(RegistryContract, ListsValuesOfAllTypesButNoSubKeys) {
    this->world.SetOther(kHKeyLocalMachine, this->kKey, u"Anzahl", 4);
    this->Set(u"Büro", std::string("x\0", 2));
    this->Set(u"Zweig", std::string("x\0", 2));
    this->world.AddKey(kHKeyLocalMachine, u"SOFTWARE\\Firma\\Unter");
    EXPECT_EQ(this->List(), (typename TestFixture::Names{u"Anzahl", u"Büro", u"Zweig"}));
}

TYPED_TEST_P(RegistryContract, ListOfAKeyWithoutValuesOrAMissingKeyIsEmpty) {
    EXPECT_TRUE(this->List().empty());
    this->world.AddKey(kHKeyLocalMachine, this->kKey);
    EXPECT_TRUE(this->List().empty());
}

TYPED_TEST_P(RegistryContract, ListEndsBeforeATooLongName) {
    this->Set(u"A", std::string("x\0", 2));
    this->Set(u"Bcdef", std::string("x\0", 2));
    this->Set(u"C", std::string("x\0", 2));
    EXPECT_EQ(this->List(5), (typename TestFixture::Names{u"A", u"Bcdef", u"C"}));
    EXPECT_EQ(this->List(4), (typename TestFixture::Names{u"A"}));
}

TYPED_TEST_P(RegistryContract, ListEndsBeforeTooLargeData) {
    this->Set(u"A", std::string("x\0", 2));
    this->world.SetOther(kHKeyLocalMachine, this->kKey, u"B", 10);
    this->Set(u"C", std::string("x\0", 2));
    EXPECT_EQ(this->List(255, 10), (typename TestFixture::Names{u"A", u"B", u"C"}));
    EXPECT_EQ(this->List(255, 9), (typename TestFixture::Names{u"A"}));
}

REGISTER_TYPED_TEST_SUITE_P(RegistryContract, TextComesWithItsClosingZero,
                            TextStoredWithoutZeroComesWithoutOne, TextBehindAZeroIsKept,
                            EmptyTextIsNoMissingText, LongTextComesWhole,
                            EmptyValueNameIsTheDefaultValue, NamesAreFoundWithoutRegardToCase,
                            UmlautsPassInKeyNameAndData, RootsAreKeptApart,
                            MissingKeyOrValueGivesNoText, ValueOfAnotherTypeIsNoText,
                            ListsValuesOfAllTypesButNoSubKeys,
                            ListOfAKeyWithoutValuesOrAMissingKeyIsEmpty, ListEndsBeforeATooLongName,
                            ListEndsBeforeTooLargeData);

}  // namespace tarvex
