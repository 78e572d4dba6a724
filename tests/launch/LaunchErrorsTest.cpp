#include "launch/LaunchErrors.h"

#include <new>

#include "errors/RuntimeErrors.h"
#include "tests/launch/LaunchFixture.h"

namespace tarvex {
namespace {

std::string TextOf(std::int32_t code, LaunchErrorValue value1 = std::nullopt,
                   LaunchErrorValue value2 = std::nullopt) {
    return text::ToUtf8(LaunchErrorText(code, u"Start", value1, value2));
}

}  // namespace

TEST(LaunchErrorTextTest, EveryCodeHasItsText) {
    EXPECT_EQ(TextOf(1), "Der HKey wurde nicht angegeben.");
    EXPECT_EQ(TextOf(2), "Der Access-Pfad kann nicht aus der Registry ermittelt werden.");
    EXPECT_EQ(TextOf(3), "Die Datei '##' wurde nicht gefunden.");
    EXPECT_EQ(TextOf(4),
              "Der Schlüssellisten-Eintrag '##' ist fehlerhaft bzw. kann nicht interpretiert "
              "werden.");
    EXPECT_EQ(TextOf(5), "Die Datenbank '##' ist nicht vorhanden.");
    EXPECT_EQ(TextOf(6),
              "Es sind keine Pfadinformationen für die zu startende Datenbank verfügbar.\r\nWenn "
              "Sie keinen Pfad angeben, muss sich eine Datenbank namens 'Start.mdb/mde/mda' im "
              "Programmpfad befinden.");
    EXPECT_EQ(TextOf(7), "Kann den Eintrag des Profiles '##' nicht in der Registry finden.");
    EXPECT_EQ(TextOf(8), "Der Schlüssellisten-Eintrag '##' enthält keinen Verweis auf den HKey.");
    EXPECT_EQ(TextOf(9), "System-Datenbank '##' nicht gefunden.");
    EXPECT_EQ(TextOf(10),
              "Die Liste der Registryschlüssel für den Access-Pfad konnte nicht analysiert "
              "werden.");
    EXPECT_EQ(TextOf(11),
              "Die benutzerdefinierten Registryeinträge für den Access-Pfad sind nicht vorhanden, "
              "enthalten keinen Wert oder an den angegebenen Positionen wurde keine ausführbare "
              "Access-Datei gefunden.");
    EXPECT_EQ(TextOf(12),
              "Die Liste der Registryschlüssel für den Datenbank-Pfad konnte nicht analysiert "
              "werden.");
    EXPECT_EQ(TextOf(13),
              "Die benutzerdefinierten Registryeinträge für den Datenbank-Pfad sind nicht "
              "vorhanden, enthalten keinen Wert oder an den angegebenen Positionen wurde keine "
              "Datenbank gefunden.");
    EXPECT_EQ(TextOf(14),
              "Die Liste der Registryschlüssel für den Pfad der Systemdatenbank konnte nicht "
              "analysiert werden.");
    EXPECT_EQ(TextOf(15),
              "Die benutzerdefinierten Registryeinträge für den Pfad der Systemdatenbank sind "
              "nicht vorhanden, enthalten keinen Wert oder an den angegebenen Positionen wurde "
              "keine Systemdatenbank gefunden.");
    EXPECT_EQ(TextOf(16), "'##' ist kein zulässiger Wert.");
    EXPECT_EQ(TextOf(17), "'##' ist kein zulässiger Wert für die Eigenschaft 'AccVersion'.");
}

TEST(LaunchErrorTextTest, UnknownCodeHasNoText) {
    EXPECT_EQ(TextOf(0), "");
    EXPECT_EQ(TextOf(18), "");
    EXPECT_EQ(TextOf(-1), "");
}

TEST(LaunchErrorTextTest, MissingDatabaseIsNamedAfterTheLauncherWithoutItsFolder) {
    const std::u16string expected = LaunchErrorText(6, u"Start");
    EXPECT_EQ(LaunchErrorText(6, u"C:\\Prog/x\\Start"), expected);
    EXPECT_EQ(LaunchErrorText(6, u"Prog/Start"), expected);
}

TEST(LaunchErrorTextTest, ValueTakesThePlaceholder) {
    EXPECT_EQ(TextOf(3, u"C:\\a.exe"), "Die Datei 'C:\\a.exe' wurde nicht gefunden.");
    EXPECT_EQ(TextOf(17, u"5"), "'5' ist kein zulässiger Wert für die Eigenschaft 'AccVersion'.");
}

TEST(LaunchErrorTextTest, EmptyValueRemovesThePlaceholderAndAnAbsentOneLeavesIt) {
    EXPECT_EQ(TextOf(3, u""), "Die Datei '' wurde nicht gefunden.");
    EXPECT_EQ(TextOf(3), "Die Datei '##' wurde nicht gefunden.");
    EXPECT_EQ(TextOf(3, std::nullopt, u"x"), "Die Datei '##' wurde nicht gefunden.");
}

TEST(LaunchErrorTextTest, MarksInsideAValueStay) {
    EXPECT_EQ(TextOf(3, u"a@@b"), "Die Datei 'a@@b' wurde nicht gefunden.");
    EXPECT_EQ(TextOf(3, u"a##b"), "Die Datei 'a##b' wurde nicht gefunden.");
}

TEST(LaunchErrorTextTest, ValueIsIgnoredByATextWithoutPlaceholder) {
    EXPECT_EQ(TextOf(2, u"x", u"y"),
              "Der Access-Pfad kann nicht aus der Registry ermittelt werden.");
}

TEST(LaunchErrorTextTest, FirstValueTakesEveryPlaceholder) {
    EXPECT_EQ(FillLaunchErrorText(u"A ## B ##", u"x", u"y"), u"A x B x");
}

TEST(LaunchErrorTextTest, SecondValueTakesAPlaceholderThatTheFirstBrought) {
    EXPECT_EQ(FillLaunchErrorText(u"A ## B", u"x##", u"y"), u"A xy B");
}

TEST(LaunchErrorTextTest, LineBreaksAreMadeBeforeValuesAreInserted) {
    EXPECT_EQ(FillLaunchErrorText(u"a@@##@@b", u"@@"), u"a\r\n@@\r\nb");
}

TEST(LaunchErrorNumberTest, NumbersFollowTheCodes) {
    EXPECT_EQ(LaunchErrorNumber(1), -2147220479);
    EXPECT_EQ(LaunchErrorNumber(5), -2147220475);
    EXPECT_EQ(LaunchErrorNumber(17), -2147220463);
}

class RaiseLaunchErrorTest : public ::testing::Test, protected LaunchWorld {
protected:
    /// Handles `pending` by passing it on with these arguments.
    template <class Pending>
    std::optional<RaisedError> PassOn(const Pending& pending, std::u16string_view source,
                                      std::u16string_view procedure,
                                      std::u16string_view description = {}) {
        return ErrorOf([&] {
            try {
                throw pending;
            } catch (...) {
                RaiseLaunchError(environment, 0, source, procedure, description);
            }
        });
    }

    std::optional<RaisedError> Raise(std::int32_t number, std::u16string_view source,
                                     std::u16string_view procedure,
                                     std::u16string_view description = {},
                                     LaunchErrorValue value = std::nullopt) {
        return ErrorOf(
            [&] { RaiseLaunchError(environment, number, source, procedure, description, value); });
    }
};

TEST_F(RaiseLaunchErrorTest, CodeGivesNumberSourceAndText) {
    EXPECT_THAT(Raise(-5, u"cuTarvex", u"GetDBPath", {}, u"C:\\a.mdb"),
                IsError(-2147220475, "Tarvex/cuTarvex: GetDBPath",
                        "Die Datenbank 'C:\\a.mdb' ist nicht vorhanden."));
}

TEST_F(RaiseLaunchErrorTest, SourceIsTheTitleAloneWithoutASource) {
    EXPECT_THAT(Raise(-1, {}, {}),
                IsError(-2147220479, "Tarvex", "Der HKey wurde nicht angegeben."));
    EXPECT_THAT(Raise(-1, {}, u"Lesen"),
                IsError(-2147220479, "Tarvex: Lesen", "Der HKey wurde nicht angegeben."));
}

TEST_F(RaiseLaunchErrorTest, GivenDescriptionReplacesTheText) {
    EXPECT_THAT(Raise(-3, {}, {}, u"Eigener Text ##", u"x"),
                IsError(-2147220477, "Tarvex", "Eigener Text ##"));
}

TEST_F(RaiseLaunchErrorTest, TextNamesTheLauncher) {
    program.exeName = u"Kunden";
    const auto error = Raise(-6, {}, {});
    ASSERT_TRUE(error);
    EXPECT_NE(error->description.find(u"'Kunden.mdb/mde/mda'"), std::u16string::npos);
}

TEST_F(RaiseLaunchErrorTest, ErrorBeingHandledIsPassedOn) {
    const RaisedError pending{
        -2147220475, u"Tarvex/cuTarvex: GetDBPath", u"Text @@ ##", u"a.chm", 7, 0};
    const auto error = PassOn(pending, {}, u": GetCommandLine");
    EXPECT_THAT(error,
                IsError(-2147220475, "Tarvex/cuTarvex: GetDBPath: : GetCommandLine", "Text @@ ##"));
    EXPECT_EQ(error->helpFile, u"a.chm");
    EXPECT_EQ(error->helpContext, 7);
}

TEST_F(RaiseLaunchErrorTest, GivenSourceAndDescriptionWinOverTheErrorBeingHandled) {
    EXPECT_THAT(PassOn(RaisedError{13, u"alt", u"Alter Text", {}, 0, 0}, u"neu", {}, u"Neuer Text"),
                IsError(13, "neu", "Neuer Text"));
}

TEST_F(RaiseLaunchErrorTest, KnownLineFollowsTheProcedure) {
    EXPECT_THAT(PassOn(RaisedError{13, u"cuTarvex", u"Text", {}, 0, 12}, {}, u"GetDBPath"),
                IsError(13, "cuTarvex: GetDBPath (12)", "Text"));
    EXPECT_THAT(PassOn(RaisedError{13, u"cuTarvex", u"Text", {}, 0, 12}, {}, {}),
                IsError(13, "cuTarvex", "Text"));
}

TEST_F(RaiseLaunchErrorTest, ExceptionOfTheLibraryBecomesARuntimeErrorOfTheApplication) {
    EXPECT_THAT(
        PassOn(std::bad_alloc(), {}, u"GetDBPath"),
        IsError(runtime_error::kOutOfMemory, "Tarvex: GetDBPath", "Nicht genügend Speicher"));
}

TEST_F(RaiseLaunchErrorTest, BusyPointerIsReset) {
    ui.pointerDefault = false;
    Raise(-1, {}, {});
    EXPECT_TRUE(ui.pointerDefault);
    EXPECT_EQ(ui.pointerChanges, 1);
}

TEST_F(RaiseLaunchErrorTest, BusyPointerIsResetWhenAnErrorIsPassedOn) {
    ui.pointerDefault = false;
    PassOn(RaisedError{13, {}, {}, {}, 0, 0}, {}, {});
    EXPECT_TRUE(ui.pointerDefault);
}

}  // namespace tarvex
