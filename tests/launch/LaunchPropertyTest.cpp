#include <algorithm>
#include <map>

#include "launch/LaunchErrors.h"
#include "tests/launch/RandomLaunch.h"

namespace tarvex {
namespace {

constexpr std::uint32_t kCasesPerSeed = 500;

/// What is known of a launch error: the step that raises it, whether test mode softens it, and the
/// log line that ends the run.
struct ErrorForm {
    const char* procedure;
    bool softened;
    const char* lastLineStart;
    const char* lastLineEnd;
};

const char* const kListInvalid = "Schlüsselliste konnte nicht aufgelöst werden";
const char* const kUnresolved = "Pfad konnte nicht ermittelt werden";

const std::map<std::int32_t, ErrorForm> kErrors = {
    {2, {"GetAccessPath", false, kUnresolved, ""}},
    {3, {"GetAccessPath", true, "Datei existiert nicht: ", ""}},
    {5, {"GetDBPath", true, "Datenbank: ", " ist nicht vorhanden!"}},
    {6, {"GetDBPath", true, "Datenbank nicht angegeben, aber eine der Optionen ", ""}},
    {7, {"GetProfile", true, "Profil ist nicht vorhanden", ""}},
    {9, {"GetSystemDB", true, "SysDB: ", " ist nicht vorhanden!"}},
    {10, {"GetAccessPath", false, kListInvalid, ""}},
    {11, {"GetAccessPath", false, kUnresolved, ""}},
    {12, {"GetDBPath", true, kListInvalid, ""}},
    {13, {"GetDBPath", true, kUnresolved, ""}},
    {14, {"GetSystemDB", true, kListInvalid, ""}},
    {15, {"GetSystemDB", true, kUnresolved, ""}},
};

/// A form of log lines, the sections ("A"ccess, "D"atabase, "S"ystem database, "P"rofile) in which
/// it occurs, and whether it ends its section.
struct LineForm {
    const char* start;
    bool whole;
    const char* sections;
    bool last;
};

const LineForm kLines[] = {
    {"Schlüsselliste wird aufgelöst", true, "ADS", false},
    {kListInvalid, true, "ADS", true},
    {kUnresolved, true, "ADS", true},
    {"Gespeicherter Wert: ", false, "ADS", false},
    {"Der Schlüssellisten-Eintrag '", false, "ADS", false},
    {" - HKey: HK", false, "ADS", false},
    {" - Schlüssel: ", false, "ADS", false},
    {" - Wertname: ", false, "ADS", false},
    {" - Unterordner: ", false, "ADS", false},
    {" - Dateiname: ", false, "ADS", false},
    {"Schlüsselinhalt: ", false, "ADS", false},
    {"Schlüssel um Unterpfad ergänzt: ", false, "A", false},
    {"Access-EXE: OK", true, "A", true},
    {"Access-EXE: ", false, "A", false},
    {"Absoluter Pfad wird verwendet: ", false, "A", false},
    {"Absoluter Pfad: ", false, "ADS", false},
    {"Relativer Pfad: ..\\", false, "ADS", false},
    {"Office-Schlüssel wird verwendet", true, "A", false},
    {"Schlüssel: SOFTWARE\\Microsoft\\Office\\", false, "AP", false},
    {"Schlüssel: ", true, "P", false},
    {"Verwendeter Pfad: ", false, "A", false},
    {"Datei existiert nicht: ", false, "A", true},
    {"Schlüsselinhalt um Unterpfad ergänzt: ", false, "DS", false},
    {"Unterpfad (", false, "DS", false},
    {"Schlüsselinhalt enthält einen Pfad und es ist kein Dateiname angegeben. Der Datenbankname "
     "kann nicht aufgelöst werden.",
     true, "DS", false},
    {"Kein Dateiname angegeben, Pfad kann nicht ermittelt werden", true, "DS", false},
    {"Berechneter Pfad: ", false, "DS", false},
    {"Datenbank: OK", true, "D", true},
    {"Datenbank: ", false, "D", false},
    {"Kein Pfad angegeben, im aktuellen Verzeichnis suchen", true, "D", false},
    {"Kein Dateiname angegeben, im aktuellen Verzeichnis suchen", true, "D", false},
    {"Suche nach: ", false, "D", false},
    {" - OK: ", false, "D", false},
    {" - nicht vorhanden", true, "D", false},
    {"Keine Datenbank gefunden", true, "D", false},
    {"Datenbank nicht angegeben, aber eine der Optionen /Runtime, /ReadOnly, /Compact, /Repair "
     "/Decompile/Macro/Cmd",
     true, "D", true},
    {"SysDB: OK", true, "S", true},
    {"SysDB: ", false, "S", false},
    {"Keine SysDB", true, "S", true},
    {"Kein Profil eingestellt", true, "P", true},
    {"Profil: OK", true, "P", true},
    {"Profil: ", false, "P", false},
    {"Profil ist nicht vorhanden", true, "P", true},
};

const std::pair<std::string, char> kSections[] = {
    {"[Access-Pfad]", 'A'}, {"[Datenbank-Pfad]", 'D'}, {"[SysDB-Pfad]", 'S'}, {"[Profil]", 'P'}};

bool StartsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

const LineForm* FormOf(const std::string& line, char section) {
    for (const LineForm& form : kLines) {
        if ((form.whole ? line == form.start : StartsWith(line, form.start)) &&
            std::string_view(form.sections).find(section) != std::string_view::npos) {
            return &form;
        }
    }
    return nullptr;
}

/// Every line has a known form of its section, sections come in order with one empty line before
/// all but the first, and nothing follows a line that decides its section.
void CheckLog(const StringList& lines) {
    std::size_t sections = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool atEnd = i + 1 == lines.size() || lines[i + 1].empty();
        if (lines[i].empty()) {
            ASSERT_GT(i, 0U);
            ASSERT_LT(i + 1, lines.size());
            ASSERT_LT(sections, std::size(kSections));
            EXPECT_EQ(lines[i + 1], kSections[sections].first);
        } else if (sections < std::size(kSections) && lines[i] == kSections[sections].first) {
            EXPECT_EQ(i == 0, sections == 0);
            EXPECT_TRUE(i == 0 || lines[i - 1].empty());
            ++sections;
        } else {
            ASSERT_GT(sections, 0U);
            const LineForm* form = FormOf(lines[i], kSections[sections - 1].second);
            ASSERT_NE(form, nullptr) << "unknown line <" << lines[i] << ">";
            EXPECT_TRUE(!form->last || atEnd) << "a line follows <" << lines[i] << ">";
        }
    }
}

/// After a file that was missing the walk through a key list goes on or ends without a path.
void CheckWalks(const StringList& lines) {
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        if (EndsWith(lines[i], "Nicht vorhanden an dieser Position")) {
            EXPECT_TRUE(StartsWith(lines[i + 1], "Gespeicherter Wert: ") ||
                        lines[i + 1] == kUnresolved)
                << lines[i + 1];
        }
    }
}

std::string Quoted(std::u16string_view value) {
    const std::string text = text::ToUtf8(text::Trim(value));
    return text.size() > 1 && text.front() == '"' && text.back() == '"' ? text : "\"" + text + "\"";
}

std::string Doubled(const std::u16string& value) {
    std::u16string result;
    for (const char16_t unit : value) {
        result.append(unit == u'/' || unit == u';' ? 2U : 1U, unit);
    }
    return Quoted(result);
}

/// The two lines differ in the credentials and in nothing else.
void CheckMasking(const RandomLaunch& launch, const std::string& real, const std::string& masked) {
    std::string realPart;
    std::string maskedPart;
    if (!launch.Settings().Properties().systemDBUser.empty()) {
        realPart = " /user " + Doubled(launch.Settings().Properties().systemDBUser);
        maskedPart = " /user \"XXXX\"";
        if (!launch.Settings().Properties().systemDBPwd.empty()) {
            realPart += " /pwd " + Doubled(launch.Settings().Properties().systemDBPwd);
            maskedPart += " /pwd \"YYYY\"";
        }
    }
    const std::string end = launch.Settings().Properties().cmd.empty()
                                ? ""
                                : " /cmd " + Quoted(launch.Settings().Properties().cmd);
    ASSERT_TRUE(EndsWith(real, realPart + end)) << real;
    ASSERT_TRUE(EndsWith(masked, maskedPart + end)) << masked;
    EXPECT_EQ(real.substr(0, real.size() - (realPart + end).size()),
              masked.substr(0, masked.size() - (maskedPart + end).size()));
    EXPECT_EQ(masked.find("§"), std::string::npos) << "a credential shows in " << masked;
}

/// The pieces between executable and command text stand in their order, one blank before each.
void CheckOrder(const RandomLaunch& launch, const std::string& masked) {
    const std::string order[] = {"",        "/wrkgrp", "/Compact", "/Excl",      "/nostartup",
                                 "/Repair", "/ro",     "/Runtime", "/Decompile", "/Profile",
                                 "/x",      "/user",   "/pwd"};
    const std::string line =
        launch.Settings().Properties().cmd.empty()
            ? masked
            : masked.substr(0, masked.rfind(" /cmd " + Quoted(launch.Settings().Properties().cmd)));
    std::size_t next = 0;
    std::size_t position = line.find('"', 1) + 1;
    ASSERT_EQ(line.front(), '"');
    while (position < line.size()) {
        ASSERT_EQ(line[position], ' ') << line.substr(position);
        std::string name;
        bool argument = line[position + 1] == '"';
        if (!argument) {
            const std::size_t end = std::min(line.find(' ', position + 1), line.size());
            name = line.substr(position + 1, end - position - 1);
            argument = end + 1 < line.size() && line[end + 1] == '"';
            position = end;
        }
        const auto* const found = std::find(order + next, std::end(order), name);
        ASSERT_NE(found, std::end(order)) << "<" << name << "> is unknown or late in " << line;
        next = static_cast<std::size_t>(found - order) + 1;
        if (argument) {
            ASSERT_EQ(line[position], ' ');
            ASSERT_EQ(line[position + 1], '"');
            position = line.find('"', position + 2) + 1;
            ASSERT_NE(position, 0U) << line;
        }
    }
}

/// The error is one that the engine knows, and its text says what the last log line says.
void CheckError(RandomLaunch& launch, const cuTarvex& tarvex, const RaisedError& error) {
    const std::int32_t code = error.number + 2147220480;
    const auto form = kErrors.find(code);
    ASSERT_NE(form, kErrors.end()) << "number " << error.number;
    EXPECT_EQ(text::ToUtf8(error.source),
              std::string("Tarvex/cuTarvex: ") + form->second.procedure + ": : GetCommandLine");
    EXPECT_TRUE(form->second.softened ? !tarvex.Properties().testMode : true);
    EXPECT_FALSE(tarvex.TestModeError());
    EXPECT_EQ(tarvex.CommandLine(), u"");
    EXPECT_EQ(tarvex.CommandLineHiddenUserPW(), u"");
    const std::string lastLine = Lines(tarvex.DebugLog()).back();
    const std::string start = form->second.lastLineStart;
    const std::string end = form->second.lastLineEnd;
    ASSERT_TRUE(StartsWith(lastLine, start) && EndsWith(lastLine, end)) << lastLine;
    const std::u16string value =
        text::FromUtf8(lastLine.substr(start.size(), lastLine.size() - start.size() - end.size()));
    EXPECT_EQ(error.description,
              LaunchErrorText(static_cast<LaunchError>(code), launch.program.exeName,
                              code == 7 ? tarvex.Properties().profile : value));
    EXPECT_EQ(error.description.find(u'§'), std::u16string::npos);
}

void CheckRun(RandomLaunch& launch, const cuTarvex& tarvex,
              const std::optional<RaisedError>& error) {
    const StringList lines = Lines(tarvex.DebugLog());
    CheckLog(lines);
    CheckWalks(lines);
    EXPECT_EQ(tarvex.DebugLog().find(u'§'), std::u16string::npos)
        << "a credential shows in the log";
    for (const std::u16string& call : launch.files.log) {
        EXPECT_EQ(call.substr(0, 7), u"exists ");
    }
    if (error) {
        CheckError(launch, tarvex, *error);
    } else {
        CheckMasking(launch, text::ToUtf8(tarvex.CommandLine()),
                     text::ToUtf8(tarvex.CommandLineHiddenUserPW()));
        CheckOrder(launch, text::ToUtf8(tarvex.CommandLineHiddenUserPW()));
        EXPECT_EQ(lines.back().empty(), false);
    }
}

/// Test mode goes the same way as the normal run, and on where that one failed.
void CheckTestMode(const cuTarvex& normal, const std::optional<RaisedError>& normalError,
                   const cuTarvex& test, const std::optional<RaisedError>& testError) {
    const bool softened = normalError && kErrors.at(normalError->number + 2147220480).softened;
    EXPECT_EQ(testError.has_value(), normalError.has_value() && !softened);
    EXPECT_EQ(test.TestModeError(), softened);
    EXPECT_FALSE(normal.TestModeError());
    EXPECT_TRUE(test.DebugLog().starts_with(normal.DebugLog()));
    if (!softened) {
        EXPECT_EQ(test.DebugLog(), normal.DebugLog());
        EXPECT_EQ(test.CommandLine(), normal.CommandLine());
        EXPECT_EQ(test.CommandLineHiddenUserPW(), normal.CommandLineHiddenUserPW());
    }
}

}  // namespace

class LaunchPropertyTest : public ::testing::TestWithParam<std::uint32_t> {};

TEST_P(LaunchPropertyTest, RandomLaunchesKeepTheRules) {
    std::map<std::int32_t, int> outcomes;
    for (std::uint32_t i = 0; i < kCasesPerSeed && !HasFailure(); ++i) {
        RandomLaunch launch(GetParam() * kCasesPerSeed + i);
        SCOPED_TRACE(launch.Describe());
        cuTarvex normal = launch.Configure(false);
        const auto normalError = ErrorOf([&] { normal.GetCommandLine(); });
        CheckRun(launch, normal, normalError);
        cuTarvex test = launch.Configure(true);
        const auto testError = ErrorOf([&] { test.GetCommandLine(); });
        CheckRun(launch, test, testError);
        if (!HasFailure()) {
            CheckTestMode(normal, normalError, test, testError);
        }
        ++outcomes[normalError ? normalError->number + 2147220480 : 0];
    }
    // The launches are of use only when every way of failing, and success, occurs among them.
    for (const auto& [code, form] : kErrors) {
        EXPECT_GT(outcomes[code], 0) << "launch error " << code;
    }
    EXPECT_GT(outcomes[0], 0);
}

INSTANTIATE_TEST_SUITE_P(Seeds, LaunchPropertyTest,
                         ::testing::Values(1U, 2U, 3U, 5U, 8U, 13U, 21U, 34U));

}  // namespace tarvex
