#include "window/keylist/PresetsForm.h"

#include "tests/window/keylist/KeyListTesting.h"
#include "window/keylist/KeyListPart.h"

namespace tarvex {
namespace {

constexpr std::int32_t kList = PresetsForm::kListRow;

class PresetsFormTest : public KeyListTest {
protected:
    /// First column of the list: "ja" for what is taken.
    std::string Marks() const {
        std::u16string marks;
        for (const std::vector<std::u16string>& item : form_.State(kList).items) {
            marks += item[0].empty() ? u"-" : u"+";
        }
        return text::ToUtf8(marks);
    }

    std::string StateText() const { return text::ToUtf8(form_.State(PresetsForm::kStateRow).text); }

    KeyListEdit edit_{document_, kAccRegList};
    PresetsForm form_{edit_};
};

TEST_F(PresetsFormTest, KnownPlacesFromTheNewestOn) {
    const RowState state = form_.State(kList);
    ASSERT_EQ(state.items.size(), 10U);
    EXPECT_EQ(state.items[0],
              (std::vector<std::u16string>{
                  u"", u"16.0", u"Access 2016 und neuer, Microsoft 365",
                  u"HKLM\\SOFTWARE\\Microsoft\\Office\\16.0\\Access\\InstallRoot\\Path"}));
    EXPECT_EQ(state.items[4],
              (std::vector<std::u16string>{
                  u"", u"11.0", u"Access 2003",
                  u"HKLM\\SOFTWARE\\Microsoft\\Office\\11.0\\Access\\InstallRoot\\Path%|%"
                  u"HKLM\\SOFTWARE\\Microsoft\\Office\\11.0\\Common\\InstallRoot\\Path"}));
    EXPECT_EQ(StateText(), "Freie Felder in der Schlüsselliste: 10 von 10.");
}

TEST_F(PresetsFormTest, TakenPlaceIsInTheListAtOnce) {
    form_.Select(kList, 1);
    form_.Press(PresetsForm::kTakeButton);
    EXPECT_EQ(Fields(kAccRegList),
              "01=HKLM\\SOFTWARE\\Microsoft\\Office\\15.0\\Access\\InstallRoot\\Path");
    EXPECT_EQ(Marks(), "-+--------");
    EXPECT_EQ(form_.State(kList).selected, 2);
    EXPECT_EQ(StateText(), "Freie Felder in der Schlüsselliste: 9 von 10.");
}

TEST_F(PresetsFormTest, PlaceIsTakenOnce) {
    Put(3, u"hklm\\software\\microsoft\\office\\16.0\\access\\installroot\\path", kAccRegList);
    EXPECT_EQ(Marks(), "+---------");
    EXPECT_EQ(form_.State(kList).disabledButtons,
              (std::vector<std::int32_t>{PresetsForm::kTakeButton}));
    form_.Press(PresetsForm::kTakeButton);
    EXPECT_EQ(edit_.Room(), 9U);
}

TEST_F(PresetsFormTest, VersionIsTakenWhenAllItsPlacesAreInTheList) {
    Put(1, u"HKLM\\SOFTWARE\\Microsoft\\Office\\11.0\\Common\\InstallRoot\\Path", kAccRegList);
    EXPECT_EQ(Marks(), "----------");
    Put(5, u"HKLM\\SOFTWARE\\Microsoft\\Office\\11.0\\Access\\InstallRoot\\Path", kAccRegList);
    EXPECT_EQ(Marks(), "----+-----");
}

TEST_F(PresetsFormTest, AllAreTakenInOneStep) {
    form_.Press(PresetsForm::kTakeAllButton);
    EXPECT_EQ(Marks(), "++++++++++");
    EXPECT_EQ(StateText(), "Die Schlüsselliste ist voll.");
    EXPECT_EQ(form_.State(kList).disabledButtons,
              (std::vector<std::int32_t>{PresetsForm::kTakeButton, PresetsForm::kTakeAllButton}));
    edit_.Undo();
    EXPECT_EQ(Marks(), "----------");
}

TEST_F(PresetsFormTest, AllThatThereIsRoomFor) {
    for (std::int32_t position = 1; position <= 8; ++position) {
        Put(position, kA, kAccRegList);
    }
    form_.Press(PresetsForm::kTakeAllButton);
    EXPECT_EQ(Marks(), "++--------");
}

TEST_F(PresetsFormTest, NewDocumentHasTheKnownPlacesAndOneFreeField) {
    EnterKnownAccessPlaces(document_);
    EXPECT_EQ(Fields(kAccRegList),
              "01=HKLM\\SOFTWARE\\Microsoft\\Office\\16.0\\Access\\InstallRoot\\Path "
              "02=HKLM\\SOFTWARE\\Microsoft\\Office\\15.0\\Access\\InstallRoot\\Path "
              "03=HKLM\\SOFTWARE\\Microsoft\\Office\\14.0\\Access\\InstallRoot\\Path "
              "04=HKLM\\SOFTWARE\\Microsoft\\Office\\12.0\\Access\\InstallRoot\\Path "
              "05=HKLM\\SOFTWARE\\Microsoft\\Office\\11.0\\Access\\InstallRoot\\Path%|%"
              "HKLM\\SOFTWARE\\Microsoft\\Office\\11.0\\Common\\InstallRoot\\Path "
              "06=HKLM\\SOFTWARE\\Microsoft\\Office\\10.0\\Access\\InstallRoot\\Path%|%"
              "HKLM\\SOFTWARE\\Microsoft\\Office\\10.0\\Common\\InstallRoot\\Path "
              "07=HKLM\\SOFTWARE\\Microsoft\\Office\\9.0\\Access\\InstallRoot\\Path%|%"
              "HKLM\\SOFTWARE\\Microsoft\\Office\\9.0\\Common\\InstallRoot\\Path "
              "08=HKLM\\SOFTWARE\\Microsoft\\Office\\8.0\\Common\\InstallRoot\\OfficeBin "
              "09=HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE\\");
    for (const std::int32_t number : kAccRegList.Numbers()) {
        EXPECT_EQ(document_.Problem(number), u"");
    }
}

TEST_F(PresetsFormTest, ListOpensThem) {
    KeyListPart part(document_, dialogs_, kAccRegList);
    dialogs_.formUsers.push_back([](FormModel& form) {
        form.Press(PresetsForm::kTakeButton);
        return false;
    });
    part.Press(KeyListRow(kAccRegList) + KeyListPart::kPresetsButton);
    EXPECT_EQ(dialogs_.log, (std::vector<std::string>{"Fenster: Bekannte Orte von Access"}));
    EXPECT_EQ(part.State(KeyListRow(kAccRegList)).items.size(), 1U);
}

}  // namespace
}  // namespace tarvex
