#include "launch/DiagnosticLog.h"

#include <gtest/gtest.h>

namespace tarvex {

TEST(DiagnosticLogTest, FirstLineIsTheTextEvenWhenABlankLineIsAskedFor) {
    DiagnosticLog log;
    log.AddLog(u"[Access-Pfad]", true);
    EXPECT_EQ(log.Text(), u"[Access-Pfad]");
}

TEST(DiagnosticLogTest, LinesAreJoinedByOneLineBreak) {
    DiagnosticLog log;
    log.AddLog(u"a");
    log.AddLog(u"b");
    EXPECT_EQ(log.Text(), u"a\r\nb");
}

TEST(DiagnosticLogTest, BlankLineIsPutBeforeALineOnRequest) {
    DiagnosticLog log;
    log.AddLog(u"a");
    log.AddLog(u"[Profil]", true);
    EXPECT_EQ(log.Text(), u"a\r\n\r\n[Profil]");
}

TEST(DiagnosticLogTest, EmptyLineIsKept) {
    DiagnosticLog log;
    log.AddLog(u"a");
    log.AddLog(u"");
    EXPECT_EQ(log.Text(), u"a\r\n");
}

TEST(DiagnosticLogTest, ClearedLogStartsAnew) {
    DiagnosticLog log;
    log.AddLog(u"a");
    log.Clear();
    EXPECT_EQ(log.Text(), u"");
    log.AddLog(u"b", true);
    EXPECT_EQ(log.Text(), u"b");
}

}  // namespace tarvex
