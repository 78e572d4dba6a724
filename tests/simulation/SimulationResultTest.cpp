#include "simulation/SimulationResult.h"

#include <gtest/gtest.h>

#include "errors/RaisedError.h"
#include "launch/LaunchErrors.h"

namespace tarvex {
namespace {

using Texts = std::vector<std::u16string>;

SimulationResult Started() {
    SimulationResult result;
    result.outcome.started = true;
    result.outcome.access = u"C:\\Office\\MSACCESS.EXE";
    result.outcome.database = u"C:\\Kunden\\Kunden.mdb";
    result.outcome.commandLine = u"\"C:\\Office\\MSACCESS.EXE\" /user \"XXXX\"";
    result.outcome.text = u"eins\r\nzwei\r\n";
    result.outcome.user = u"Meier";
    return result;
}

Expectation Expecting() {
    Expectation expected;
    expected.given = true;
    return expected;
}

/// Each deviation as "name: expected | actual".
Texts Deviations(const Expectation& expected, const SimulationResult& actual) {
    Texts texts;
    for (const Deviation& deviation : Compare(expected, actual)) {
        texts.push_back(deviation.name + u": " + deviation.expected + u" | " + deviation.actual);
    }
    return texts;
}

TEST(SimulationResultTest, ExpectationThatIsMetGivesNoDifference) {
    Expectation expected = Expecting();
    expected.result = u"Start";
    expected.access = u"c:\\office\\msaccess.exe";
    expected.database = u"C:\\KUNDEN\\Kunden.mdb";
    expected.commandLine = u"\"C:\\Office\\MSACCESS.EXE\" /user \"XXXX\"";
    expected.protocol = u"eins\nzwei";
    EXPECT_EQ(Deviations(expected, Started()), Texts());
}

TEST(SimulationResultTest, EverythingThatIsExpectedIsCompared) {
    Expectation expected = Expecting();
    expected.result = u"Fehler 5";
    expected.access = u"C:\\Office\\msaccess2.exe";
    expected.database = u"";
    expected.commandLine = u"\"C:\\Office\\msaccess.exe\" /user \"XXXX\"";
    expected.protocol = u"eins\r\nZwei\r\n";
    EXPECT_EQ(Deviations(expected, Started()),
              (Texts{u"Ergebnis: Fehler 5 | Start",
                     u"Access: C:\\Office\\msaccess2.exe | C:\\Office\\MSACCESS.EXE",
                     u"Datenbank:  | C:\\Kunden\\Kunden.mdb",
                     u"Befehlszeile: \"C:\\Office\\msaccess.exe\" /user \"XXXX\" | "
                     u"\"C:\\Office\\MSACCESS.EXE\" /user \"XXXX\"",
                     u"Protokoll, Zeile 2: Zwei | zwei"}));
}

TEST(SimulationResultTest, WhatIsNotExpectedIsNotCompared) {
    EXPECT_EQ(Deviations(Expecting(), Started()), Texts());
    EXPECT_EQ(Deviations({}, Started()), Texts());
}

TEST(SimulationResultTest, LineThatOnlyOneTextHasIsADifference) {
    Expectation expected = Expecting();
    expected.protocol = u"eins";
    EXPECT_EQ(Deviations(expected, Started()), (Texts{u"Protokoll, Zeile 2:  | zwei"}));
    expected.protocol = u"eins\nzwei\ndrei\n";
    EXPECT_EQ(Deviations(expected, Started()), (Texts{u"Protokoll, Zeile 3: drei | "}));
}

TEST(SimulationResultTest, CredentialsOfTheExpectationAreMasked) {
    Expectation expected = Expecting();
    expected.commandLine = u"\"C:\\Office\\MSACCESS.EXE\" /user \"Meier\"";
    EXPECT_EQ(
        Deviations(expected, Started()),
        (Texts{u"Befehlszeile: \"C:\\Office\\MSACCESS.EXE\" /user \"XXXX\" (nicht maskiert) | "
               u"\"C:\\Office\\MSACCESS.EXE\" /user \"XXXX\""}));
}

TEST(SimulationResultTest, UndeterminedCaseFailsUnlessItIsExpected) {
    SimulationResult result = Started();
    result.undescribed = {{Asked::File, u"C:\\x.mdb"}};
    EXPECT_EQ(result.Result(), u"unbestimmt");
    EXPECT_FALSE(result.Passed());

    Expectation expected = Expecting();
    expected.database = u"C:\\Kunden\\Kunden.mdb";
    EXPECT_EQ(Deviations(expected, result), (Texts{u"Ergebnis:  | unbestimmt"}));
    expected.result = u"Start";
    EXPECT_EQ(Deviations(expected, result), (Texts{u"Ergebnis: Start | unbestimmt"}));
    expected.result = u"unbestimmt";
    EXPECT_EQ(Deviations(expected, result), Texts());
}

TEST(SimulationResultTest, WithoutAnExpectationAStartPasses) {
    SimulationResult result = Started();
    EXPECT_TRUE(result.Passed());
    result.outcome.started = false;
    EXPECT_FALSE(result.Passed());
}

TEST(SimulationResultTest, WithAnExpectationAFailurePassesThatIsExpected) {
    SimulationResult result;
    result.outcome.errorNumber = NumberOf(LaunchError::DatabaseNotFound);
    result.hasExpectation = true;
    EXPECT_TRUE(result.Passed());
    result.deviations = {{u"Ergebnis", u"Start", u"Fehler 5"}};
    EXPECT_FALSE(result.Passed());
}

}  // namespace
}  // namespace tarvex
