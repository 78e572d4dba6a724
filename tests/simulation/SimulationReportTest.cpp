#include "simulation/SimulationReport.h"

#include <gtest/gtest.h>

#include "launch/LaunchErrors.h"

namespace tarvex {
namespace {

SimulationResult Started(std::u16string name) {
    SimulationResult result;
    result.name = std::move(name);
    result.outcome.started = true;
    result.outcome.access = u"C:\\Office\\MSACCESS.EXE";
    result.outcome.database = u"C:\\Kunden\\Kunden.mdb";
    result.outcome.commandLine = u"\"C:\\Office\\MSACCESS.EXE\" \"C:\\Kunden\\Kunden.mdb\"";
    result.outcome.text = u"Das Startprogramm würde\r\n\r\n[Profil]\r\n";
    return result;
}

SimulationResult Failed(std::u16string name) {
    SimulationResult result;
    result.name = std::move(name);
    result.outcome.errorNumber = NumberOf(LaunchError::DatabaseNeeded);
    result.outcome.errorText = u"Es sind keine Pfadinformationen verfügbar.\r\nWenn Sie ...";
    result.outcome.text = u"Tarvex\r\nBeschreibung";
    return result;
}

SimulationResult Undetermined(std::u16string name) {
    SimulationResult result = Started(std::move(name));
    result.undescribed = {{Asked::Value, u"HKLM\\SOFTWARE\\Firma\\Pfad"},
                          {Asked::File, u"C:\\Kunden\\Kunden.mdb"}};
    return result;
}

SimulationResult Expecting(SimulationResult result, std::vector<Deviation> deviations = {}) {
    result.hasExpectation = true;
    result.deviations = std::move(deviations);
    return result;
}

const std::u16string kUnseenLine =
    u"Keine Simulation sieht Sperren, Zugriffsrechte, Vertrauenseinstellungen und blockierte "
    u"Dateien.\n";

const std::u16string kUndeterminedLines =
    u"    Nicht beschrieben und darum als nicht vorhanden behandelt:\n"
    u"      HKLM\\SOFTWARE\\Firma\\Pfad\n"
    u"      C:\\Kunden\\Kunden.mdb\n"
    u"    So wird es auf dem PC exportiert; was es dort nicht gibt, gehört zu Fehlt:\n"
    u"      reg export \"HKLM\\SOFTWARE\\Firma\" registrierung.reg\n"
    u"      dir /s /b /a-d \"C:\\Kunden\" > dateien.txt\n";

TEST(SimulationReportTest, ResultOfOneComputerIsTheTextAlone) {
    const SimulationReport report = ReportSimulation({Started(u"a.pc")}, false);
    EXPECT_EQ(report.result, u"Das Startprogramm würde\n\n[Profil]\n");
    EXPECT_EQ(report.remarks,
              u"a.pc: Start; Access C:\\Office\\MSACCESS.EXE; Datenbank C:\\Kunden\\Kunden.mdb\n" +
                  kUnseenLine);
    EXPECT_EQ(ReportSimulation({Started(u"a.pc")}, true).result, report.result);
}

TEST(SimulationReportTest, TextWithoutALineEndGetsOne) {
    EXPECT_EQ(ReportSimulation({Failed(u"a.pc")}, false).result, u"Tarvex\nBeschreibung\n");
}

TEST(SimulationReportTest, OneComputerIsComparedAfterItsText) {
    const SimulationReport report = ReportSimulation(
        {Expecting(Started(u"a.pc"), {{u"Ergebnis", u"Fehler 5", u"Start"},
                                      {u"Datenbank", u"", u"C:\\Kunden\\Kunden.mdb"}})},
        false);
    EXPECT_EQ(report.result,
              u"Das Startprogramm würde\n"
              u"\n"
              u"[Profil]\n"
              u"\n"
              u"FEHLER  a.pc: Start; Access C:\\Office\\MSACCESS.EXE; Datenbank "
              u"C:\\Kunden\\Kunden.mdb\n"
              u"    Ergebnis: erwartet Fehler 5, tatsächlich Start\n"
              u"    Datenbank: erwartet <leer>, tatsächlich C:\\Kunden\\Kunden.mdb\n");
    EXPECT_EQ(report.remarks, kUnseenLine);
}

TEST(SimulationReportTest, WhatIsNotDescribedIsRemarkedOnOneComputer) {
    const SimulationReport report = ReportSimulation({Undetermined(u"a.pc")}, false);
    EXPECT_EQ(report.result, u"Das Startprogramm würde\n\n[Profil]\n");
    EXPECT_EQ(report.remarks,
              u"a.pc: unbestimmt; nach dem, was beschrieben ist: Start; Access "
              u"C:\\Office\\MSACCESS.EXE; Datenbank C:\\Kunden\\Kunden.mdb\n" +
                  kUndeterminedLines + kUnseenLine);
}

TEST(SimulationReportTest, SeveralComputersGiveALineEachAndASum) {
    const SimulationReport report =
        ReportSimulation({Started(u"a.pc"), Failed(u"b.pc"), Undetermined(u"c.pc")}, false);
    EXPECT_EQ(report.result,
              u"a.pc: Start; Access C:\\Office\\MSACCESS.EXE; Datenbank C:\\Kunden\\Kunden.mdb\n"
              u"b.pc: Fehler 6: Es sind keine Pfadinformationen verfügbar.\n"
              u"c.pc: unbestimmt; nach dem, was beschrieben ist: Start; Access "
              u"C:\\Office\\MSACCESS.EXE; Datenbank C:\\Kunden\\Kunden.mdb\n" +
                  kUndeterminedLines + u"3 PCs: 1 startet, 1 startet nicht, 1 unbestimmt.\n");
    EXPECT_EQ(report.remarks, kUnseenLine);
}

TEST(SimulationReportTest, SeveralComputersShowTheirTextsWhenAsked) {
    EXPECT_EQ(ReportSimulation({Started(u"a.pc"), Failed(u"b.pc")}, true).result,
              u"a.pc: Start; Access C:\\Office\\MSACCESS.EXE; Datenbank C:\\Kunden\\Kunden.mdb\n"
              u"\n"
              u"Das Startprogramm würde\n"
              u"\n"
              u"[Profil]\n"
              u"\n"
              u"b.pc: Fehler 6: Es sind keine Pfadinformationen verfügbar.\n"
              u"\n"
              u"Tarvex\n"
              u"Beschreibung\n"
              u"\n"
              u"2 PCs: 1 startet, 1 startet nicht, 0 unbestimmt.\n");
}

TEST(SimulationReportTest, AnExpectationGivesEveryComputerAVerdict) {
    SimulationResult withoutDatabase = Started(u"c.pc");
    withoutDatabase.outcome.database.clear();
    EXPECT_EQ(ReportSimulation({Expecting(Failed(u"a.pc")),
                                Expecting(Failed(u"b.pc"), {{u"Protokoll, Zeile 3", u"x", u"y"}}),
                                withoutDatabase, Failed(u"d.pc")},
                               false)
                  .result,
              u"ok      a.pc: Fehler 6: Es sind keine Pfadinformationen verfügbar.\n"
              u"FEHLER  b.pc: Fehler 6: Es sind keine Pfadinformationen verfügbar.\n"
              u"    Protokoll, Zeile 3: erwartet x, tatsächlich y\n"
              u"ok      c.pc: Start; Access C:\\Office\\MSACCESS.EXE; keine Datenbank\n"
              u"FEHLER  d.pc: Fehler 6: Es sind keine Pfadinformationen verfügbar.\n"
              u"4 PCs: 2 ok, 2 FEHLER.\n");
}

TEST(SimulationReportTest, SumAgreesWithItsNumbers) {
    EXPECT_TRUE(ReportSimulation({Started(u"a.pc"), Started(u"b.pc")}, false)
                    .result.ends_with(u"\n2 PCs: 2 starten, 0 starten nicht, 0 unbestimmt.\n"));
}

TEST(SimulationReportTest, NotesStandBelowTheirComputer) {
    SimulationResult result = Started(u"a.pc");
    result.notes = {u"HKLM\\SOFTWARE\\X\\Pfad steht nur in der 64-Bit-Ansicht."};
    EXPECT_EQ(ReportSimulation({result}, false).remarks,
              u"a.pc: Start; Access C:\\Office\\MSACCESS.EXE; Datenbank C:\\Kunden\\Kunden.mdb\n"
              u"    HKLM\\SOFTWARE\\X\\Pfad steht nur in der 64-Bit-Ansicht.\n" +
                  kUnseenLine);
}

TEST(SimulationReportTest, ExportsAreThoseOfTheTopmostKeysAndFolders) {
    EXPECT_EQ(
        ExportCommands({{Asked::Value, u"HKLM\\SOFTWARE\\Firma\\A\\Pfad"},
                        {Asked::Value, u"HKLM\\SOFTWARE\\Firma\\"},
                        {Asked::Value, u"HKLM\\Software\\FIRMA\\Zeit"},
                        {Asked::ValueNames, u"HKCU\\Software\\Profile"},
                        {Asked::Value, u"HKLM\\SOFTWARE\\Firma2\\Pfad"},
                        {Asked::File, u"C:\\Kunden\\Daten\\x.mdb"},
                        {Asked::File, u"C:\\Kunden\\y.mdb"},
                        {Asked::File, u"D:\\z.mdb"}}),
        (std::vector<std::u16string>{u"reg export \"HKLM\\SOFTWARE\\Firma\" registrierung1.reg",
                                     u"reg export \"HKCU\\Software\\Profile\" registrierung2.reg",
                                     u"reg export \"HKLM\\SOFTWARE\\Firma2\" registrierung3.reg",
                                     u"dir /s /b /a-d \"C:\\Kunden\" > dateien1.txt",
                                     u"dir /s /b /a-d \"D:\\z.mdb\" > dateien2.txt"}));
}

}  // namespace
}  // namespace tarvex
