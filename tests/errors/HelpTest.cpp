#include "errors/Help.h"

#include <stdexcept>

#include "tests/errors/AppErrorFixture.h"
#include "tests/support/FakeFileSystem.h"

namespace tarvex {
namespace {

struct HelpCall {
    std::u16string engine;
    WindowHandle owner;
    std::u16string path;
    std::uint32_t command;
    std::int32_t data;
};

class FakeHelpApi : public HelpApi {
public:
    bool CallWinHelp(WindowHandle owner, std::u16string_view path, std::uint32_t command,
                     std::int32_t data) override {
        return Record({u"hlp", owner, std::u16string(path), command, data});
    }
    bool CallHtmlHelp(WindowHandle owner, std::u16string_view path, std::uint32_t command,
                      std::int32_t data) override {
        return Record({u"chm", owner, std::u16string(path), command, data});
    }

    std::vector<HelpCall> calls;
    bool succeeds = true;
    bool throws = false;

private:
    bool Record(HelpCall call) {
        calls.push_back(std::move(call));
        if (throws) {
            throw std::runtime_error("defekt");
        }
        return succeeds;
    }
};

class HelpTest : public AppErrorFixture {
protected:
    HelpTest() {
        files.AddFile(u"C:\\Prog\\Start.hlp");
        files.AddFile(u"C:\\Prog\\Start.chm");
        files.AddFile(u"C:\\Prog\\Start.txt");
        errors.SetHelpFile(u"C:\\Prog\\Start.chm");
    }

    void Show(std::u16string_view path, std::int32_t context = 42) {
        help.ShowHelp(&window, path, context);
    }

    FakeHelpApi api;
    FakeFileSystem files;
    Help help{api, files, errors};
    int window = 0;
};

TEST_F(HelpTest, EachExtensionHasItsEngineAndCommand) {
    const HelpCall expected[] = {{u"hlp", &window, u"C:\\Prog\\Start.hlp", 1, 42},
                                 {u"chm", &window, u"C:\\Prog\\Start.chm", 15, 42}};
    for (const HelpCall& call : expected) {
        Show(call.path);
        ASSERT_FALSE(api.calls.empty());
        EXPECT_EQ(api.calls.back().engine, call.engine);
        EXPECT_EQ(api.calls.back().owner, call.owner);
        EXPECT_EQ(api.calls.back().path, call.path);
        EXPECT_EQ(api.calls.back().command, call.command);
        EXPECT_EQ(api.calls.back().data, call.data);
    }
    EXPECT_EQ(api.calls.size(), 2u);
    EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(HelpTest, TheExtensionIsComparedWithoutRegardToCase) {
    Show(u"C:\\Prog\\START.HLP");
    Show(u"C:\\Prog\\START.Chm");
    ASSERT_EQ(api.calls.size(), 2u);
    EXPECT_EQ(api.calls[0].engine, u"hlp");
    EXPECT_EQ(api.calls[1].engine, u"chm");
}

TEST_F(HelpTest, AnyContextIsPassedOn) {
    Show(u"C:\\Prog\\Start.chm", 0);
    Show(u"C:\\Prog\\Start.hlp", -1);
    ASSERT_EQ(api.calls.size(), 2u);
    EXPECT_EQ(api.calls[0].data, 0);
    EXPECT_EQ(api.calls[1].data, -1);
}

TEST_F(HelpTest, OtherExtensionsDoNothing) {
    for (const char16_t* const path :
         {u"", u"C:\\Prog\\Start.txt", u"C:\\Prog\\Start", u"chm", u"C:\\Prog.chm\\Start",
          u"C:\\Prog\\Start.xhlp", u"C:\\Prog\\Start.hlpx", u"C:\\Prog\\Start.xchm",
          u"C:\\Prog\\Start.chmx"}) {
        Show(path);
    }
    EXPECT_TRUE(api.calls.empty());
    EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(HelpTest, AMissingFileIsReported) {
    Show(u"C:\\Prog\\fehlt.hlp");
    Show(u"C:\\Prog\\fehlt.chm");
    EXPECT_TRUE(api.calls.empty());
    ASSERT_EQ(ui.boxes.size(), 2u);
    EXPECT_EQ(ui.boxes[0].text, u"Die Hilfedatei 'C:\\Prog\\fehlt.hlp' wurde nicht gefunden.");
    EXPECT_EQ(ui.boxes[1].text, u"Die Hilfedatei 'C:\\Prog\\fehlt.chm' wurde nicht gefunden.");
    for (const MessageBoxRequest& box : ui.boxes) {
        EXPECT_EQ(box.style, 48u) << "no help button in a box about missing help";
        EXPECT_EQ(box.title, u"Tarvex");
    }
}

TEST_F(HelpTest, ATopicThatDoesNotOpenIsReported) {
    api.succeeds = false;
    Show(u"C:\\Prog\\Start.chm", 4711);
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text,
              u"Die Hilfedatei 'C:\\Prog\\Start.chm' konnte nicht mit dem Hilfethema 4711 geöffnet "
              u"werden.");
    EXPECT_EQ(ui.boxes[0].style, 16u);
}

TEST_F(HelpTest, TheClassicEnginesFailureIsItsOwnAffair) {
    api.succeeds = false;
    Show(u"C:\\Prog\\Start.hlp");
    EXPECT_EQ(api.calls.size(), 1u);
    EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(HelpTest, NeverRaises) {
    api.throws = true;
    Show(u"C:\\Prog\\Start.chm");
    Show(u"C:\\Prog\\Start.hlp");
    EXPECT_EQ(api.calls.size(), 2u);
    EXPECT_TRUE(ui.boxes.empty());
}

TEST(FileExtensionTest, IsWhatFollowsTheLastDotOfTheWholePath) {
    EXPECT_EQ(Help::FileExtension(u"X.HLP"), u"HLP");
    EXPECT_EQ(Help::FileExtension(u"a.b.chm"), u"chm");
    EXPECT_EQ(Help::FileExtension(u"a.b\\c"), u"b\\c");
    EXPECT_EQ(Help::FileExtension(u"a."), u"");
    EXPECT_EQ(Help::FileExtension(u"chm"), u"");
    EXPECT_EQ(Help::FileExtension(u""), u"");
}

}  // namespace
}  // namespace tarvex
