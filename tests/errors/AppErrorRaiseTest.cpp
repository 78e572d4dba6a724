#include <limits>

#include "tests/errors/AppErrorFixture.h"

namespace tarvex {
namespace {

using AppErrorRaiseTest = AppErrorFixture;

TEST_F(AppErrorRaiseTest, ANewObjectHasItsDefaults) {
    EXPECT_EQ(errors.AppName(), u"Tarvex");
    EXPECT_EQ(errors.ErrLevel(), 2);
    EXPECT_EQ(errors.ErrOffset(), 0);
    EXPECT_FALSE(errors.MsgArray().has_value());
    EXPECT_EQ(errors.Projectname(), u"Tarvex");
    EXPECT_EQ(errors.HelpFile(), u"");
    EXPECT_EQ(errors.Pending(), nullptr);
}

TEST_F(AppErrorRaiseTest, PassingOnWithoutPendingErrorReturns) {
    ui.pointerDefault = false;
    std::int32_t number = 0;
    std::u16string source = u"Application";
    std::u16string description;
    EXPECT_NO_THROW(errors.ErrRaise(number, source, u"Init", description));
    EXPECT_EQ(source, u"Application");
    EXPECT_EQ(ui.pointerChanges, 0);
}

TEST_F(AppErrorRaiseTest, APendingErrorWithoutNumberIsNoError) {
    SetPending(0, u"cuTarvex: GetDBPath", u"Text", 12);
    ui.pointerDefault = false;
    std::int32_t number = 0;
    std::u16string source = u"Application";
    std::u16string description = u"Beschreibung";
    EXPECT_NO_THROW(errors.ErrRaise(number, source, u"Init", description));
    EXPECT_EQ(number, 0);
    EXPECT_EQ(source, u"Application");
    EXPECT_EQ(description, u"Beschreibung");
    EXPECT_EQ(errors.Pending(), nullptr);
    EXPECT_EQ(ui.pointerChanges, 0);
}

TEST_F(AppErrorRaiseTest, ANumberOfItsOwnIsRaisedWithAPendingErrorWithoutNumber) {
    SetPending(0, u"cuTarvex", u"Text", 12);
    const RaisedError error = Raised(5, u"Application", u"Init");
    EXPECT_EQ(error.number, 5);
    EXPECT_EQ(error.source, u"cuTarvex | Application: Init (12)");
    EXPECT_EQ(error.description, u"Text");
}

TEST_F(AppErrorRaiseTest, ANegativeNumberRaisesAMessage) {
    const RaisedError error = Raised(-105, {}, {}, {}, u"C:\\Prog\\Kunden.mdb");
    EXPECT_EQ(error.number, -2147221609);
    EXPECT_EQ(error.description, u"Kann die Datenbank 'C:\\Prog\\Kunden.mdb' nicht finden.");
    EXPECT_EQ(error.source, u"");
    EXPECT_EQ(error.helpContext, 0);
    EXPECT_EQ(error.helpFile, u"");
    EXPECT_EQ(error.line, 0);
}

TEST_F(AppErrorRaiseTest, NumbersOfTheLaunchersMessages) {
    EXPECT_EQ(Raised(-107).number, -2147221611);
    EXPECT_EQ(Raised(-117).number, -2147221621);
}

TEST_F(AppErrorRaiseTest, TheOffsetShiftsMessageNumbers) {
    errors.SetErrOffset(1000);
    EXPECT_EQ(Raised(-105).number, -2147220609);
    EXPECT_EQ(Raised(5, {}, {}, u"Text").number, 5);
}

TEST_F(AppErrorRaiseTest, APositiveNumberIsRaisedAsItIs) {
    const RaisedError error = Raised(53, u"cuBrand", u"Save", u"Datei ## fehlt@@", u"x");
    EXPECT_EQ(error.number, 53);
    EXPECT_EQ(error.description, u"Datei x fehlt\r\n");
    EXPECT_EQ(error.source, u"cuBrand: Save");
}

TEST_F(AppErrorRaiseTest, PassesThePendingErrorOn) {
    SetPending(-2147220475, u"cuTarvex: GetDBPath", u"Pfad 'a@@b##c.mdb'");
    const RaisedError error = Raised(0, u"Application", u"Init", {}, u"nie eingesetzt");
    EXPECT_EQ(error.number, -2147220475);
    EXPECT_EQ(error.description, u"Pfad 'a@@b##c.mdb'");
    EXPECT_EQ(error.source, u"cuTarvex: GetDBPath | Application: Init");
    EXPECT_EQ(errors.Pending(), nullptr);
}

TEST_F(AppErrorRaiseTest, TheLineFollowsTheProcedure) {
    SetPending(5, u"cuTarvex: GetDBPath", u"Text", 12);
    EXPECT_EQ(Raised(0, u"Application", u"Init").source,
              u"cuTarvex: GetDBPath | Application: Init (12)");
}

TEST_F(AppErrorRaiseTest, WithoutProcedureThereIsNoLine) {
    SetPending(5, u"cuTarvex: GetDBPath", u"Text", 12);
    EXPECT_EQ(Raised(0, u"Application").source, u"cuTarvex: GetDBPath | Application");
}

TEST_F(AppErrorRaiseTest, AnEmptySourceBecomesThePendingOne) {
    SetPending(5, u"cuTarvex", u"Text");
    EXPECT_EQ(Raised(0, {}, u"Init").source, u"cuTarvex: Init");
    SetPending(5, {}, u"Text", 3);
    EXPECT_EQ(Raised(0, {}, u"Init").source, u"Init (3)");
    SetPending(5, {}, u"Text");
    const RaisedError error = Raised(0);
    EXPECT_EQ(error.source, u"");
    EXPECT_EQ(error.number, 5);
    EXPECT_EQ(error.description, u"Text");
}

TEST_F(AppErrorRaiseTest, TheProjectNameCountsAsNoSource) {
    SetPending(5, u"TARVEX", u"Text");
    EXPECT_EQ(Raised(0, u"Application", u"Init").source, u"Application: Init");
    errors.SetProjectname(u"Übung");
    SetPending(5, u"üBUNG", u"Text");
    EXPECT_EQ(Raised(0, u"Application").source, u"Application");
    SetPending(5, u"Tarvex", u"Text");
    EXPECT_EQ(Raised(0, u"Application").source, u"Tarvex | Application");
}

TEST_F(AppErrorRaiseTest, AMissingDescriptionIsSaidToBeMissing) {
    EXPECT_EQ(Raised(5).description, u"Keine Fehlerbeschreibung verfügbar.");
    SetPending(7, {}, {});
    EXPECT_EQ(Raised(0).description, u"Keine Fehlerbeschreibung verfügbar.");
}

TEST_F(AppErrorRaiseTest, AnUnknownMessageTakesThePendingDescription) {
    SetPending(7, {}, u"Nicht genügend Speicher");
    const RaisedError error = Raised(-110);
    EXPECT_EQ(error.number, -2147221614);
    EXPECT_EQ(error.description, u"Nicht genügend Speicher");
    EXPECT_EQ(Raised(-110).description, u"Keine Fehlerbeschreibung verfügbar.");
}

TEST_F(AppErrorRaiseTest, AHelpContextBringsTheHelpFileInTheProgramFolder) {
    errors.SetHelpFile(u"D:\\anderswo\\Start.chm");
    const RaisedError error = Raised(5, {}, {}, u"Text", {}, {}, 1);
    EXPECT_EQ(error.helpFile, u"C:\\Prog\\Start.chm");
    EXPECT_EQ(error.helpContext, 1);
    EXPECT_EQ(Raised(5, {}, {}, u"Text", {}, {}, 0).helpFile, u"");
    EXPECT_EQ(Raised(5, {}, {}, u"Text", {}, {}, -1).helpFile, u"");
    EXPECT_EQ(Raised(5, {}, {}, u"Text", {}, {}, 9, u"E:\\x.hlp").helpFile, u"E:\\x.hlp");
}

TEST_F(AppErrorRaiseTest, ANumberThatOverflowsIsKept) {
    EXPECT_EQ(Raised(-2147220479).number, -2147220479);
    EXPECT_EQ(Raised(std::numeric_limits<std::int32_t>::min()).number,
              std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(Raised(-262144).number, std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(Raised(-262145).number, -262145);
}

TEST_F(AppErrorRaiseTest, AnOffsetMayTakeTheNumberBackIntoRange) {
    errors.SetErrOffset(1);
    EXPECT_EQ(Raised(-262145).number, std::numeric_limits<std::int32_t>::min());
}

TEST_F(AppErrorRaiseTest, ResetsTheMousePointer) {
    ui.pointerDefault = false;
    Raised(-105);
    EXPECT_TRUE(ui.pointerDefault);
}

TEST_F(AppErrorRaiseTest, AHelpFileWithoutFolderIsTheProgramsToo) {
    errors.SetHelpFile(u"Start.chm");
    EXPECT_EQ(Raised(5, {}, {}, u"Text", {}, {}, 1).helpFile, u"C:\\Prog\\Start.chm");
}

TEST_F(AppErrorRaiseTest, RaiseMessageTakesThePositiveNumber) {
    errors.SetHelpFile(u"C:\\Prog\\Start.chm");
    try {
        errors.RaiseMessage(Message::NotBranded, u"C:\\Prog\\Start.exe");
    } catch (const RaisedError& error) {
        EXPECT_EQ(error.number, -2147221621);
        EXPECT_EQ(error.source, u"");
        EXPECT_EQ(error.helpFile, u"");
        EXPECT_EQ(error.helpContext, 0);
        EXPECT_EQ(error.description,
                  u"Im Startprogramm 'C:\\Prog\\Start.exe' wurden keine Parameter gesetzt.\r\n"
                  u"Verwenden Sie das Tarvex-Konfigurationsprogramm, um die Parameter für die zu "
                  u"ladende Access-Datenbank einzustellen.");
    }
}

TEST_F(AppErrorRaiseTest, AnIndexOutsideTheMessageArrayDoesNotReplaceTheError) {
    errors.SetMsgArray(std::vector<std::u16string>{u"null", u"eins"});
    const RaisedError error = Raised(-2, {}, {}, u"eigener Text");
    EXPECT_EQ(error.number, -2147221506);
    EXPECT_EQ(error.description, u"eigener Text");
}

class AppErrorStoreTest : public AppErrorFixture {
protected:
    RaisedError RaisedAgain(std::u16string source = {}, std::u16string_view procedure = {}) {
        try {
            errors.ErrRaiseStored(source, procedure);
        } catch (const RaisedError& error) {
            EXPECT_EQ(source, error.source) << "the argument receives what is raised";
            return error;
        }
    }
};

TEST_F(AppErrorStoreTest, RaisesTheStoredErrorAgain) {
    errors.SetPending({-2147220475, u"cuTarvex: GetDBPath", u"a@@b##", u"C:\\h.chm", 42, 1});
    errors.ErrStore();
    errors.ClearPending();
    ui.pointerDefault = false;
    const RaisedError error = RaisedAgain(u"Application", u"Init");
    EXPECT_EQ(error.number, -2147220475);
    EXPECT_EQ(error.description, u"a@@b##");
    EXPECT_EQ(error.source, u"cuTarvex: GetDBPath | Application: Init (1)");
    EXPECT_EQ(error.helpFile, u"");
    EXPECT_EQ(error.helpContext, 0);
    EXPECT_EQ(error.line, 0);
    EXPECT_TRUE(ui.pointerDefault);
}

TEST_F(AppErrorStoreTest, StoringWithoutPendingErrorForgetsTheStoredOne) {
    SetPending(5, u"cuTarvex", u"Text", 12);
    errors.ErrStore();
    errors.ClearPending();
    errors.ErrStore();
    const RaisedError error = RaisedAgain(u"Application", u"Init");
    EXPECT_EQ(error.number, 0);
    EXPECT_EQ(error.source, u" | Application: Init");
    EXPECT_EQ(error.description, u"");
}

TEST_F(AppErrorStoreTest, TheProjectNameStaysAsStoredSource) {
    SetPending(5, u"Tarvex", u"Text");
    errors.ErrStore();
    EXPECT_EQ(RaisedAgain(u"Application").source, u"Tarvex | Application");
}

TEST_F(AppErrorStoreTest, AnEmptyStoredSourceLeavesALeadingSeparator) {
    SetPending(5, {}, u"Text");
    errors.ErrStore();
    EXPECT_EQ(RaisedAgain(u"Application", u"Init").source, u" | Application: Init");
}

TEST_F(AppErrorStoreTest, AnEmptySourceBecomesTheStoredOne) {
    SetPending(5, u"cuTarvex", u"Text");
    errors.ErrStore();
    EXPECT_EQ(RaisedAgain().source, u"cuTarvex");
    EXPECT_EQ(RaisedAgain({}, u"Init").source, u"cuTarvex: Init");
}

TEST_F(AppErrorStoreTest, TheLineStandsBehindTheSourceOrAlone) {
    SetPending(5, u"cuTarvex", u"Text", 12);
    errors.ErrStore();
    EXPECT_EQ(RaisedAgain().source, u"cuTarvex (12)");
    EXPECT_EQ(RaisedAgain(u"A", u"P").source, u"cuTarvex | A: P (12)");
    SetPending(5, {}, u"Text", 12);
    errors.ErrStore();
    EXPECT_EQ(RaisedAgain().source, u"Zeile 12");
    EXPECT_EQ(RaisedAgain({}, u"Init").source, u": Init (12)");
}

}  // namespace
}  // namespace tarvex
