#include "commands/CommandLine.h"

#include <gtest/gtest.h>

#include <utility>

#include "commands/BashCompletion.h"
#include "commands/CommandHelp.h"
#include "commands/ManPage.h"
#include "tests/commands/CommandsWorld.h"

namespace tarvex {
namespace {

using Arguments = std::vector<std::u16string>;

TEST(CommandLineTest, WrongUsageIsSaidInGermanWithTheUsageOfTheCommand) {
    const std::vector<std::pair<Arguments, std::u16string>> wrong = {
        {{}, u"es fehlt der Befehl."},
        {{u"foo"}, u"unbekannter Befehl 'foo'."},
        {{u""}, u"unbekannter Befehl ''."},
        {{u"brand"}, u"es fehlt VORLAGE.exe."},
        {{u"brand", u""}, u"es fehlt VORLAGE.exe."},
        {{u"brand", u"T.exe"}, u"es fehlt AUSGABE.exe."},
        {{u"brand", u"T.exe", u"K.exe"}, u"es fehlt --settings DATEI.ini oder --from ALT.exe."},
        {{u"brand", u"T.exe", u"K.exe", u"--settings"}, u"--settings braucht einen Wert."},
        {{u"brand", u"T.exe", u"K.exe", u"--settings", u"a", u"--settings", u"b"},
         u"--settings ist mehrfach angegeben."},
        {{u"brand", u"T.exe", u"K.exe", u"--settings=a", u"--settings=a"},
         u"--settings ist mehrfach angegeben."},
        {{u"brand", u"T.exe", u"K.exe", u"--force=ja", u"--settings", u"a"},
         u"--force nimmt keinen Wert."},
        {{u"brand", u"T.exe", u"K.exe", u"--settings", u"a", u"--drop", u"Cmd"},
         u"--drop gehört zu --from."},
        {{u"set", u"T.exe"}, u"es fehlt NAME=WERT."},
        {{u"set", u"T.exe", u"geheim"}, u"eine Zuweisung hat nicht die Form NAME=WERT."},
        {{u"show", u"T.exe", u"--nix"}, u"unbekannt ist '--nix'."},
        {{u"show", u"T.exe", u"--nix=1"}, u"unbekannt ist '--nix=1'."},
        {{u"show", u"T.exe", u"-x"}, u"unbekannt ist '-x'."},
        {{u"show", u"-xyz", u"T.exe"}, u"unbekannt ist '-x'."},
        {{u"show", u"T.exe", u"--ünd"}, u"unbekannt ist '--ünd'."},
        {{u"show", u"T.exe", u"K.exe"}, u"zu viel ist 'K.exe'."},
        {{u"fields", u"x"}, u"zu viel ist 'x'."},
        {{u"help", u"show", u"set"}, u"zu viel ist 'set'."},
    };
    for (const auto& [arguments, problem] : wrong) {
        CommandsWorld world;
        EXPECT_EQ(world.Run(arguments), 2) << text::ToUtf8(problem);
        EXPECT_EQ(world.console.out, u"");
        const CommandInfo* info = arguments.empty() ? nullptr : FindCommand(arguments[0]);
        EXPECT_EQ(world.console.err,
                  u"tarvexcf: Falscher Aufruf: " + problem + u"\nAufruf: " +
                      (info != nullptr ? UsageLine(*info)
                                       : u"tarvexcf BEFEHL [ARGUMENTE] (mehr mit --help)") +
                      u"\n");
    }
}

TEST(CommandLineTest, TwoDashesEndTheOptions) {
    const CommandLine line = ParseCommandLine({u"show", u"--json", u"--", u"--reveal"});
    EXPECT_EQ(line.usageError, u"");
    EXPECT_EQ(line.arguments, Arguments({u"--reveal"}));
    EXPECT_TRUE(line.Has(Option::Json));
    EXPECT_FALSE(line.Has(Option::Reveal));
}

TEST(CommandLineTest, OptionsMayStandAnywhereAndFlagsTwice) {
    const CommandLine line = ParseCommandLine(
        {u"brand", u"--force", u"T.exe", u"--set", u"A=1", u"K.exe", u"--force", u"--settings=x"});
    EXPECT_EQ(line.usageError, u"");
    EXPECT_EQ(line.arguments, Arguments({u"T.exe", u"K.exe"}));
    EXPECT_EQ(line.Value(Option::Settings), u"x");
    EXPECT_TRUE(line.Has(Option::Force));
}

TEST(CommandLineTest, ValuesAreLiteralWhateverTheyHold) {
    const Arguments values = {u"[a,b]", u"a=b",     u"{x}",        u"\"a\" 'b'", u"%1 $x",
                              u"-5",    u"--force", u"\U0001f600", u"",          u"Grün ä"};
    for (const std::u16string& value : values) {
        const CommandLine set = ParseCommandLine({u"set", u"T.exe", u" Cmd =" + value});
        ASSERT_EQ(set.assignments.size(), 1U);
        EXPECT_EQ(set.assignments[0].name, u"Cmd");
        EXPECT_EQ(set.assignments[0].value, value);
        const CommandLine brand = ParseCommandLine(
            {u"brand", u"T.exe", u"K.exe", u"--settings", value, u"--set", u"Cmd=" + value});
        ASSERT_EQ(brand.assignments.size(), 1U) << text::ToUtf8(brand.usageError);
        EXPECT_EQ(brand.assignments[0].value, value);
        EXPECT_EQ(brand.Value(Option::Settings), value);
    }
}

TEST(CommandLineTest, DashAloneIsAName) {
    EXPECT_EQ(ParseCommandLine({u"export", u"K.exe", u"-"}).arguments, Arguments({u"K.exe", u"-"}));
}

TEST(CommandLineTest, EnvironmentDoesNotEndTheOptionsAtTheFirstName) {
    // The system's reader of options keeps to this variable unless it is told not to.
    static char variable[] = "POSIXLY_CORRECT=1";
    putenv(variable);
    const CommandLine line = ParseCommandLine({u"show", u"K.exe", u"--json"});
    static char none[] = "POSIXLY_CORRECT=";
    putenv(none);
    EXPECT_EQ(line.arguments, Arguments({u"K.exe"}));
    EXPECT_TRUE(line.Has(Option::Json));
}

TEST(CommandHelpTest, GeneralHelpNamesEveryCommandInOneLine) {
    CommandsWorld world;
    for (const Arguments& arguments :
         {Arguments{u"--help"}, Arguments{u"-h"}, Arguments{u"help"}}) {
        EXPECT_EQ(world.Run(arguments), 0);
        EXPECT_EQ(world.console.out, GeneralHelp());
    }
    for (const CommandInfo& info : CommandTable()) {
        EXPECT_NE(GeneralHelp().find(u"\n  " + std::u16string(info.name) + u" "),
                  std::u16string::npos);
    }
}

TEST(CommandHelpTest, HelpOfACommandIsTheSameBothWays) {
    CommandsWorld world;
    for (const CommandInfo& info : CommandTable()) {
        const std::u16string name(info.name);
        EXPECT_EQ(world.Run({name, u"--help"}), 0);
        const std::u16string help = world.console.out;
        EXPECT_EQ(world.Run({u"help", name}), 0);
        EXPECT_EQ(world.console.out, help);
        EXPECT_TRUE(help.starts_with(u"Aufruf: tarvexcf " + name));
    }
    EXPECT_EQ(world.Run({u"help", u"foo"}), 2);
    EXPECT_EQ(world.console.err, u"tarvexcf: Unbekannter Befehl 'foo'.\n");
}

TEST(CommandHelpTest, HelpOfACommandInFull) {
    EXPECT_EQ(CommandHelp(*FindCommand(u"show")),
              u"Aufruf: tarvexcf show DATEI.exe|DATEI.ini [--all] [--reveal] [--json]\n"
              u"    [--codepage NUMMER]\n"
              u"\n"
              u"Zeigt die Felder, die gesetzt sind.\n"
              u"\n"
              u"  --all              zeigt auch die leeren Felder\n"
              u"  --reveal           zeigt auch Benutzernamen und Kennwörter\n"
              u"  --json             gibt JSON aus\n"
              u"  --codepage NUMMER  Codeseite der Benutzer: 874 oder 1250 bis 1258\n");
}

TEST(CommandHelpTest, LinesFitATerminal) {
    for (const CommandInfo& info : CommandTable()) {
        const std::u16string help = CommandHelp(info);
        for (const std::u16string_view line : text::Split(help, u'\n')) {
            EXPECT_LE(line.size(), 100U) << text::ToUtf8(line);
        }
    }
}

TEST(ManPageTest, HoldsEveryCommandAndOptionEscapedForTheFormatter) {
    const std::u16string page = ManPage();
    EXPECT_TRUE(page.starts_with(u".TH TARVEXCF 1 "));
    EXPECT_NE(page.find(u".SS export\n.nf\ntarvexcf export DATEI.exe AUSGABE.ini [\\-\\-force] "
                        u"[\\-\\-no\\-secrets] [\\-\\-dry\\-run]\n"),
              std::u16string::npos);
    for (const CommandInfo& info : CommandTable()) {
        EXPECT_NE(page.find(u".SS " + std::u16string(info.name) + u"\n"), std::u16string::npos);
        for (const std::u16string_view line : text::Split(page, u'\n')) {
            EXPECT_FALSE(line.starts_with(u"'")) << text::ToUtf8(line);
        }
    }
}

}  // namespace
}  // namespace tarvex
