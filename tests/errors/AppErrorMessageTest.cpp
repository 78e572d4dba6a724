#include "errors/RuntimeErrors.h"
#include "tests/errors/AppErrorFixture.h"

namespace tarvex {
namespace {

TEST(MsgParseTest, EveryDoubleAtBecomesALineBreak) {
    EXPECT_EQ(cuAppError::MsgParse(u"a@@b@@@@c"), u"a\r\nb\r\n\r\nc");
    EXPECT_EQ(cuAppError::MsgParse(u"a@b@@@"), u"a@b\r\n@");
    EXPECT_EQ(cuAppError::MsgParse(u""), u"");
}

TEST(MsgParseTest, ParametersReplaceTheFirstMarkersInOrder) {
    EXPECT_EQ(cuAppError::MsgParse(u"## ## ##", u"eins", u"zwei"), u"eins zwei ##");
    EXPECT_EQ(cuAppError::MsgParse(u"## ##", u"eins"), u"eins ##");
    EXPECT_EQ(cuAppError::MsgParse(u"ohne Marke", u"eins", u"zwei"), u"ohne Marke");
}

TEST(MsgParseTest, WithoutFirstParameterTheSecondIsNotUsed) {
    EXPECT_EQ(cuAppError::MsgParse(u"## ##", std::nullopt, u"zwei"), u"## ##");
    EXPECT_EQ(cuAppError::MsgParse(u"## ##"), u"## ##");
}

TEST(MsgParseTest, AnEmptyParameterReplacesItsMarkerByNothing) {
    EXPECT_EQ(cuAppError::MsgParse(u"<##> ##", u"", u"zwei"), u"<> zwei");
    EXPECT_EQ(cuAppError::MsgParse(u"##@@@@##", u"Kopf", u""), u"Kopf\r\n\r\n");
}

TEST(MsgParseTest, NumbersBecomeDecimalText) {
    EXPECT_EQ(cuAppError::MsgParse(u"## ##", -2147483647 - 1, 1000000), u"-2147483648 1000000");
    EXPECT_EQ(cuAppError::MsgParse(u"##", 0), u"0");
}

TEST(MsgParseTest, LineBreaksAreMadeBeforeParametersAreInserted) {
    EXPECT_EQ(cuAppError::MsgParse(u"##@@", u"a@@b"), u"a@@b\r\n");
}

TEST(MsgParseTest, AMarkerInsideTheFirstParameterIsTakenByTheSecond) {
    EXPECT_EQ(cuAppError::MsgParse(u"A ## B ##", u"x##y", u"z"), u"A xzy B ##");
}

TEST(MsgParamTest, NothingDiffersFromAnEmptyText) {
    EXPECT_TRUE(MsgParam().IsNull());
    EXPECT_TRUE(MsgParam(std::nullopt).IsNull());
    EXPECT_EQ(MsgParam().Text(), u"");
    EXPECT_FALSE(MsgParam(u"").IsNull());
    EXPECT_FALSE(MsgParam(std::u16string()).IsNull());
    EXPECT_FALSE(MsgParam(0).IsNull());
}

using AppErrorMessageTest = AppErrorFixture;

TEST_F(AppErrorMessageTest, LoadsAMessageByItsNumberOfEitherSign) {
    const std::u16string expected =
        u"Im Startprogramm 'X' wurden keine Parameter gesetzt.\r\nVerwenden Sie das "
        u"Tarvex-Konfigurationsprogramm, um die Parameter für die zu ladende Access-Datenbank "
        u"einzustellen.";
    EXPECT_EQ(errors.MsgLoad(117, u"X"), expected);
    EXPECT_EQ(errors.MsgLoad(-117, u"X"), expected);
}

TEST_F(AppErrorMessageTest, AnUnknownMessageIsEmpty) {
    EXPECT_EQ(errors.MsgLoad(110, u"X"), u"");
    EXPECT_EQ(errors.MsgLoad(0), u"");
    EXPECT_EQ(errors.MsgLoad(-2147483647 - 1), u"");
}

TEST_F(AppErrorMessageTest, AMessageArrayTakesThePlaceOfTheTable) {
    errors.SetMsgArray(std::vector<std::u16string>{u"null ##", u"eins@@"});
    EXPECT_EQ(errors.MsgLoad(0, u"x"), u"null x");
    EXPECT_EQ(errors.MsgLoad(-1), u"eins\r\n");
    for (const std::int32_t outside : {2, 117, -117}) {
        try {
            errors.MsgLoad(outside);
            ADD_FAILURE() << "nothing was raised for " << outside;
        } catch (const RaisedError& error) {
            EXPECT_EQ(error.number, NumberOf(RuntimeError::IndexOutOfRange));
        }
    }
    errors.SetMsgArray(std::nullopt);
    EXPECT_EQ(errors.MsgLoad(125), u"&Beenden");
}

class AppErrorMsgShowTest : public AppErrorFixture {
protected:
    int Show(std::int32_t number, const MsgParam& param1 = {}, const MsgParam& param2 = {}) {
        return errors.MsgShow(number, buttons, param1, param2, text, title, helpFile, helpContext);
    }

    std::uint32_t buttons = 48;
    std::u16string text;
    std::u16string title;
    std::u16string helpFile;
    std::int32_t helpContext = -1;
};

TEST_F(AppErrorMsgShowTest, ShowsTheNumberedMessageUnderTheApplicationsName) {
    errors.SetAppName(u"Kunden");
    ui.answers = {6};
    EXPECT_EQ(Show(105, u"x.mdb"), 6);
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, u"Kann die Datenbank 'x.mdb' nicht finden.");
    EXPECT_EQ(ui.boxes[0].title, u"Kunden");
    EXPECT_EQ(ui.boxes[0].style, 48u);
    EXPECT_EQ(ui.boxes[0].helpFile, u"");
    EXPECT_EQ(text, u"Kann die Datenbank 'x.mdb' nicht finden.");
    EXPECT_EQ(title, u"Kunden");
}

TEST_F(AppErrorMsgShowTest, AGivenTextAndTitleAreShownInstead) {
    text = u"Eigener ## Text@@";
    title = u"Titel";
    Show(105, u"x");
    EXPECT_EQ(ui.boxes[0].text, u"Eigener x Text\r\n");
    EXPECT_EQ(ui.boxes[0].title, u"Titel");
    EXPECT_EQ(text, u"Eigener x Text\r\n");
}

TEST_F(AppErrorMsgShowTest, AHelpContextAddsTheHelpButtonOfTheProgramsHelpFile) {
    errors.SetHelpFile(u"C:\\Prog\\Start.chm");
    helpContext = 0;
    Show(105);
    EXPECT_EQ(buttons, 48u | 0x4000u);
    EXPECT_EQ(helpFile, u"C:\\Prog\\Start.chm");
    EXPECT_EQ(ui.boxes[0].style, 48u | 0x4000u);
    EXPECT_EQ(ui.boxes[0].helpFile, u"C:\\Prog\\Start.chm");
    EXPECT_EQ(ui.boxes[0].helpContext, 0);
}

TEST_F(AppErrorMsgShowTest, TheHelpButtonIsAddedOnce) {
    helpFile = u"D:\\andere.hlp";
    helpContext = 7;
    buttons = 0x4010;
    Show(105);
    EXPECT_EQ(buttons, 0x4010u);
    EXPECT_EQ(ui.boxes[0].helpFile, u"D:\\andere.hlp");
    EXPECT_EQ(ui.boxes[0].helpContext, 7);
}

TEST_F(AppErrorMsgShowTest, WithoutContextOrHelpFileThereIsNoHelpButton) {
    helpContext = 5;
    Show(105);
    EXPECT_EQ(buttons, 48u) << "no help file";
    errors.SetHelpFile(u"C:\\Prog\\Start.chm");
    helpContext = -1;
    Show(105);
    EXPECT_EQ(buttons, 48u) << "no context";
    EXPECT_EQ(helpFile, u"");
}

TEST_F(AppErrorMsgShowTest, ThePointerIsDefaultWhileTheBoxShows) {
    ui.pointerDefault = false;
    Show(105);
    EXPECT_TRUE(ui.pointerDefaultInBox[0]);
    EXPECT_FALSE(ui.pointerDefault) << "restored";
    ui.pointerDefault = true;
    Show(105);
    EXPECT_TRUE(ui.pointerDefault);
}

TEST_F(AppErrorMsgShowTest, TheShortFormHasNoHelp) {
    errors.SetHelpFile(u"C:\\Prog\\Start.chm");
    ui.answers = {2};
    EXPECT_EQ(errors.MsgShow(Message::WrongPassword, box_style::kStopIcon), 2);
    EXPECT_EQ(ui.boxes[0].text, u"Das Kennwort für die Diagnoseinformationen ist falsch.");
    EXPECT_EQ(ui.boxes[0].style, 16u);
    EXPECT_EQ(ui.boxes[0].title, u"Tarvex");
    EXPECT_LT(ui.boxes[0].helpContext, 0);
}

using AppErrorErrMsgTest = AppErrorFixture;

TEST_F(AppErrorErrMsgTest, ShowsLinePlaceAndDescription) {
    SetPending(-2147220475, u"cuTarvex: GetDBPath", u"Text", 12);
    errors.ErrMsg(u"Application", u"Init");
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text,
              u"Zeile: 12\r\ncuTarvex: GetDBPath | Application: Init\r\n\r\nText");
    EXPECT_EQ(ui.boxes[0].title, u"Tarvex <Fehler Nr. -2147220475>");
    EXPECT_EQ(ui.boxes[0].style, 16u);
}

TEST_F(AppErrorErrMsgTest, EveryPartOfThePlaceMayBeMissing) {
    SetPending(5, u"tarvex", u"Text");
    errors.ErrMsg(u"Application", u"Init");
    errors.ErrMsg(u"", u"Init");
    errors.ErrMsg(u"Application", u"");
    SetPending(5, u"Quelle", u"Text");
    errors.ErrMsg(u"", u"Init");
    errors.ErrMsg(u"", u"");
    const std::vector<std::u16string> expected = {
        u"Application: Init\r\n\r\nText", u"Init\r\n\r\nText", u"Application\r\n\r\nText",
        u"Quelle: Init\r\n\r\nText", u"Quelle\r\n\r\nText"};
    ASSERT_EQ(ui.boxes.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(ui.boxes[i].text, expected[i]);
    }
}

TEST_F(AppErrorErrMsgTest, WithoutPlaceOnlyTheDescriptionIsShown) {
    SetPending(5, u"", u"Text", 12);
    errors.ErrMsg(u"", u"");
    EXPECT_EQ(ui.boxes[0].text, u"Text");
}

TEST_F(AppErrorErrMsgTest, TheLevelDecidesWhatIsShown) {
    SetPending(5, u"Quelle", u"Text", 12);
    errors.SetErrLevel(0);
    errors.ErrMsg(u"Application", u"Init");
    errors.SetErrLevel(-1);
    errors.ErrMsg(u"Application", u"Init");
    EXPECT_TRUE(ui.boxes.empty());
    for (const std::int32_t withoutPlace : {1, 3}) {
        errors.SetErrLevel(withoutPlace);
        errors.ErrMsg(u"Application", u"Init");
        EXPECT_EQ(ui.boxes.back().text, u"Text");
    }
    EXPECT_EQ(ui.boxes.size(), 2u);
}

TEST_F(AppErrorErrMsgTest, AHelpContextAddsTheHelpButton) {
    errors.SetHelpFile(u"C:\\Prog\\Start.hlp");
    SetPending(5, u"", u"Text");
    std::u16string helpFile;
    std::int32_t helpContext = 0;
    errors.ErrMsg(u"", u"", helpFile, helpContext);
    EXPECT_EQ(ui.boxes[0].style, 16400u);
    EXPECT_EQ(ui.boxes[0].helpFile, u"C:\\Prog\\Start.hlp");
    EXPECT_EQ(helpFile, u"C:\\Prog\\Start.hlp");
    helpFile = u"D:\\andere.chm";
    errors.ErrMsg(u"", u"", helpFile, helpContext);
    EXPECT_EQ(ui.boxes[1].helpFile, u"D:\\andere.chm");
}

TEST_F(AppErrorErrMsgTest, ThePointerIsSetToDefaultAndTheErrorStaysPending) {
    ui.pointerDefault = false;
    SetPending(5, u"", u"Text");
    errors.ErrMsg(u"", u"");
    EXPECT_TRUE(ui.pointerDefaultInBox[0]);
    EXPECT_TRUE(ui.pointerDefault);
    ASSERT_NE(errors.Pending(), nullptr);
    EXPECT_EQ(errors.Pending()->number, 5);
}

}  // namespace
}  // namespace tarvex
