#include "launch/LaunchErrors.h"

#include <new>

#include "errors/RuntimeErrors.h"
#include "tests/launch/LaunchFixture.h"

namespace tarvex {
namespace {

std::string TextOf(std::int32_t code, LaunchErrorValue value1 = std::nullopt,
                   LaunchErrorValue value2 = std::nullopt) {
    return text::ToUtf8(LaunchErrorText(static_cast<LaunchError>(code), u"Start", value1, value2));
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
    const std::u16string expected = LaunchErrorText(LaunchError::DatabaseNeeded, u"Start");
    EXPECT_EQ(LaunchErrorText(LaunchError::DatabaseNeeded, u"C:\\Prog/x\\Start"), expected);
    EXPECT_EQ(LaunchErrorText(LaunchError::DatabaseNeeded, u"Prog/Start"), expected);
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

TEST(LaunchErrorTextTest, FirstPlaceholdersPlaceSaysHowManyAreReplaced) {
    EXPECT_EQ(FillLaunchErrorText(u"## ## ## ## ##", u"x"), u"x x x ## ##");
    EXPECT_EQ(FillLaunchErrorText(u"A########################", u"x"), u"Axxxx################");
}

TEST(LaunchErrorTextTest, SecondValueTakesWhatTheFirstLeft) {
    EXPECT_EQ(FillLaunchErrorText(u"## ## ## ## ##", u"x", u"y"), u"x x x y y");
    EXPECT_EQ(FillLaunchErrorText(u"## ## ## ## ##", std::nullopt, u"y"), u"## ## ## ## ##");
}

TEST(LaunchErrorTextTest, SecondValueTakesAPlaceholderThatTheFirstBrought) {
    EXPECT_EQ(FillLaunchErrorText(u"A ## B", u"x##", u"y"), u"A xy B");
}

TEST(LaunchErrorTextTest, LineBreaksAreMadeBeforeValuesAreInserted) {
    EXPECT_EQ(FillLaunchErrorText(u"a@@##@@b", u"@@"), u"a\r\n@@\r\nb");
}

TEST(LaunchErrorNumberTest, NumbersFollowTheCodes) {
    EXPECT_EQ(NumberOf(LaunchError::HKeyMissing), -2147220479);
    EXPECT_EQ(NumberOf(LaunchError::DatabaseNotFound), -2147220475);
    EXPECT_EQ(NumberOf(LaunchError::AccVersionNotAllowed), -2147220463);
}

class RaiseLaunchErrorTest : public ::testing::Test, protected LaunchWorld {
protected:
    /// Handles `pending` by passing it on.
    template <class Pending>
    std::optional<RaisedError> PassOn(const Pending& pending, std::u16string_view procedure) {
        return ErrorOf([&] {
            try {
                throw pending;
            } catch (...) {
                PassOnLaunchError(environment, procedure);
            }
        });
    }

    std::optional<RaisedError> Raise(LaunchError error, std::u16string_view procedure = {},
                                     LaunchErrorValue value = std::nullopt) {
        return ErrorOf([&] { RaiseLaunchError(environment, error, procedure, value); });
    }
};

TEST_F(RaiseLaunchErrorTest, CodeGivesNumberSourceAndText) {
    EXPECT_THAT(Raise(LaunchError::DatabaseNotFound, u"GetDBPath", u"C:\\a.mdb"),
                IsError(-2147220475, "Tarvex/cuTarvex: GetDBPath",
                        "Die Datenbank 'C:\\a.mdb' ist nicht vorhanden."));
}

TEST_F(RaiseLaunchErrorTest, SourceIsTheClassAloneWithoutAProcedure) {
    EXPECT_THAT(Raise(LaunchError::HKeyMissing),
                IsError(-2147220479, "Tarvex/cuTarvex", "Der HKey wurde nicht angegeben."));
}

TEST_F(RaiseLaunchErrorTest, TextNamesTheLauncher) {
    program.exeName = u"Kunden";
    const auto error = Raise(LaunchError::DatabaseNeeded);
    ASSERT_TRUE(error);
    EXPECT_NE(error->description.find(u"'Kunden.mdb/mde/mda'"), std::u16string::npos);
}

TEST_F(RaiseLaunchErrorTest, ErrorBeingHandledIsPassedOn) {
    const RaisedError pending{
        -2147220475, u"Tarvex/cuTarvex: GetDBPath", u"Text @@ ##", u"a.chm", 7, 0};
    const auto error = PassOn(pending, u": GetCommandLine");
    EXPECT_THAT(error,
                IsError(-2147220475, "Tarvex/cuTarvex: GetDBPath: : GetCommandLine", "Text @@ ##"));
    EXPECT_EQ(error->helpFile, u"a.chm");
    EXPECT_EQ(error->helpContext, 7);
}

TEST_F(RaiseLaunchErrorTest, KnownLineFollowsTheProcedure) {
    EXPECT_THAT(PassOn(RaisedError{13, u"cuTarvex", u"Text", {}, 0, 12}, u"GetDBPath"),
                IsError(13, "cuTarvex: GetDBPath (12)", "Text"));
    EXPECT_THAT(PassOn(RaisedError{13, u"cuTarvex", u"Text", {}, 0, 12}, {}),
                IsError(13, "cuTarvex", "Text"));
}

TEST_F(RaiseLaunchErrorTest, ExceptionOfTheLibraryBecomesARuntimeErrorOfTheApplication) {
    EXPECT_THAT(PassOn(std::bad_alloc(), u"GetDBPath"),
                IsError(NumberOf(RuntimeError::OutOfMemory), "Tarvex: GetDBPath",
                        "Nicht genügend Speicher"));
}

TEST_F(RaiseLaunchErrorTest, BusyPointerIsReset) {
    ui.pointerDefault = false;
    Raise(LaunchError::HKeyMissing);
    EXPECT_TRUE(ui.pointerDefault);
    EXPECT_EQ(ui.pointerChanges, 1);
}

TEST_F(RaiseLaunchErrorTest, BusyPointerIsResetWhenAnErrorIsPassedOn) {
    ui.pointerDefault = false;
    PassOn(RaisedError{13, {}, {}, {}, 0, 0}, {});
    EXPECT_TRUE(ui.pointerDefault);
}

}  // namespace tarvex
