#include "window/views/EntryAsker_win32.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

const PreviewRequest kAbout = {{}, u"C:\\Kunden\\Kunden.exe", u"D:\\Kasse.pc"};

TEST(EntryAskerTest, EntryIsAskedForAloneAndInItsList) {
    EntryAsker asker([](const PreviewRequest& request) {
        PreviewResult result;
        const std::u16string entry(request.settings.Value(kDBRegList.Field(1)));
        result.entries[{kDBRegList.first, entry}] = {
            request.settings.Entries().size() == 1,
            request.program + u" " + request.pc + u" " + entry};
        return result;
    });
    const EntryAnswer answer = asker.Answer(kAbout, kDBRegList, u"HKLM\\A\\B");
    EXPECT_EQ(answer.text, u"C:\\Kunden\\Kunden.exe D:\\Kasse.pc HKLM\\A\\B");
    EXPECT_TRUE(answer.exists);
}

TEST(EntryAskerTest, ReasonIsTheAnswerWhereThereIsNoPreview) {
    EntryAsker asker([](const PreviewRequest&) {
        PreviewResult result;
        result.commandLine = u"Die Beschreibung des PCs kann nicht verwendet werden.";
        return result;
    });
    EXPECT_EQ(asker.Answer(kAbout, kDBRegList, u"HKLM\\A\\B").text,
              u"Die Beschreibung des PCs kann nicht verwendet werden.");
}

TEST(EntryAskerTest, PathThatDoesNotAnswerDoesNotHoldUpTheWindow) {
    const HANDLE answers = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const DWORD start = GetTickCount();
    {
        EntryAsker asker([answers](const PreviewRequest&) {
            WaitForSingleObject(answers, INFINITE);
            return PreviewResult();
        });
        EXPECT_EQ(asker.Answer(kAbout, kDBRegList, u"HKLM\\A\\B").text,
                  u"Ein Pfad antwortet nicht…");
    }
    EXPECT_LT(GetTickCount() - start, 2000u);
    SetEvent(answers);
}

}  // namespace
}  // namespace tarvex
