#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "commands/CommandHelp.h"
#include "configurator/checks/Finding.h"
#include "text/Text.h"

namespace tarvex {
namespace {

std::u16string Document(const std::string& name) {
    std::ifstream file(TARVEX_DOCS "/" + name);
    EXPECT_TRUE(file.good()) << name;
    std::ostringstream text;
    text << file.rdbuf();
    return text::FromUtf8(text.str());
}

TEST(DocumentsTest, DocumentShowsTheUsageOfEveryCommand) {
    const std::u16string document = Document("tarvexcf.md");
    for (const CommandInfo& info : CommandTable()) {
        const std::u16string usage =
            u"\n    " + text::Replace(UsageLine(info), u"\n", u"\n    ") + u"\n";
        EXPECT_NE(document.find(usage), std::u16string::npos)
            << "docs/tarvexcf.md should hold:" << text::ToUtf8(usage);
    }
}

TEST(DocumentsTest, DocumentTellsOfEveryOption) {
    const std::u16string document = Document("tarvexcf.md");
    for (const CommandInfo& info : CommandTable()) {
        for (const OptionInfo& option : info.options) {
            const std::u16string name = u"`--" + text::FromUtf8(option.name);
            EXPECT_NE(document.find(name), std::u16string::npos) << text::ToUtf8(name);
        }
    }
}

TEST(DocumentsTest, HandbookNamesEveryCommandThatVendorsUse) {
    const std::u16string handbook = Document("handbuch.md");
    for (const CommandInfo& info : CommandTable()) {
        const std::u16string name = u"`tarvexcf " + std::u16string(info.name);
        EXPECT_NE(handbook.find(name), std::u16string::npos) << text::ToUtf8(name);
    }
}

TEST(DocumentsTest, HandbookListsEveryFinding) {
    const std::u16string handbook = Document("handbuch.md");
    for (const FindingKind& kind : kFindingKinds) {
        const std::u16string row = u"\n| `" + std::u16string(kind.id) + u"` | " +
                                   std::u16string(SeverityName(kind.severity)) + u" | " +
                                   text::Replace(kind.meaning, u"|", u"\\|") + u" |\n";
        EXPECT_NE(handbook.find(row), std::u16string::npos)
            << "docs/handbuch.md should hold:" << text::ToUtf8(row);
    }
}

}  // namespace
}  // namespace tarvex
