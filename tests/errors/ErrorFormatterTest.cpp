#include "errors/cuAppErrorFormatter.h"
#include "tests/errors/AppErrorFixture.h"

namespace tarvex {
namespace {

class ErrorFormatterTest : public AppErrorFixture {
protected:
    std::u16string Formatted(std::u16string_view module = {}, std::u16string_view procedure = {}) {
        return cuAppErrorFormatter::GetFormattedError(errors, module, procedure);
    }
};

TEST_F(ErrorFormatterTest, LaysOutOneRowPerValue) {
    SetPending(-2147220475, u"Tarvex/cuTarvex: GetDBPath", u"Die Datenbank ist nicht vorhanden.",
               12);
    EXPECT_EQ(Formatted(u"Application", u"Init"),
              u"Nummer       : -2147220475\r\n"
              u"Quelle       : Tarvex/cuTarvex: GetDBPath | Application: Init\r\n"
              u"Zeile        : 12\r\n"
              u"Beschreibung : Die Datenbank ist nicht vorhanden.");
}

TEST_F(ErrorFormatterTest, RowsWithoutValueAreLeftOut) {
    SetPending(0, u"", u"Nur Text");
    EXPECT_EQ(Formatted(), u"Beschreibung : Nur Text");
    SetPending(7, u"", u"");
    EXPECT_EQ(Formatted(), u"Nummer       : 7");
    errors.ClearPending();
    EXPECT_EQ(Formatted(), u"");
}

TEST_F(ErrorFormatterTest, TheProjectNameIsNoSource) {
    SetPending(7, u"TARVEX", u"");
    EXPECT_EQ(Formatted(u"Application", u"Init"),
              u"Nummer       : 7\r\nQuelle       : Application: Init");
}

TEST_F(ErrorFormatterTest, TheLevelDecidesWhichRowsAppear) {
    SetPending(7, u"Quelle", u"Text", 3);
    errors.SetErrLevel(1);
    EXPECT_EQ(Formatted(u"Application", u"Init"), u"Nummer       : 7\r\nBeschreibung : Text");
    errors.SetErrLevel(3);
    EXPECT_EQ(Formatted(u"Application", u"Init"), u"Nummer       : 7\r\nBeschreibung : Text");
    errors.SetErrLevel(0);
    EXPECT_EQ(Formatted(u"Application", u"Init"), u"");
    errors.SetErrLevel(-1);
    EXPECT_EQ(Formatted(u"Application", u"Init"), u"");
}

TEST_F(ErrorFormatterTest, LongValuesContinueUnderTheirFirstCharacter) {
    const std::u16string eighty(80, u'x');
    SetPending(0, u"", eighty + u" " + eighty + u" Ende");
    const std::u16string indent(15, u' ');
    EXPECT_EQ(Formatted(),
              u"Beschreibung : " + eighty + u"\r\n" + indent + eighty + u"\r\n" + indent + u"Ende");
}

TEST_F(ErrorFormatterTest, ValuesAreWrappedAtEightyCharacters) {
    const std::u16string first(40, u'x');
    SetPending(0, u"", first + u" " + std::u16string(39, u'y'));
    EXPECT_EQ(Formatted(), u"Beschreibung : " + first + u" " + std::u16string(39, u'y'));
    SetPending(0, u"", first + u" " + std::u16string(40, u'y'));
    EXPECT_EQ(Formatted(), u"Beschreibung : " + first + u"\r\n" + std::u16string(15, u' ') +
                               std::u16string(40, u'y'));
}

TEST_F(ErrorFormatterTest, ParagraphsOfAValueStayParagraphs) {
    SetPending(0, u"", u"eins\r\n\r\nzwei");
    EXPECT_EQ(Formatted(), u"Beschreibung : eins\r\n               \r\n               zwei");
}

TEST_F(ErrorFormatterTest, AnOverlongWordIsNotLost) {
    const std::u16string path = u"C:\\" + std::u16string(90, u'p');
    SetPending(0, u"", u"Kann " + path + u" nicht finden");
    EXPECT_EQ(Formatted(), u"Beschreibung : Kann " + path + u" nicht finden");
}

std::u16string Wrapped(std::u16string_view text, std::size_t width) {
    return cuAppErrorFormatter::WordWrap(text, width);
}

TEST(WordWrapTest, AnEmptyTextStaysEmpty) {
    EXPECT_EQ(Wrapped(u"", 10), u"");
}

TEST(WordWrapTest, LinesMayBeExactlyAsLongAsTheWidth) {
    EXPECT_EQ(Wrapped(u"eins zwei drei", 9), u"eins zwei\r\ndrei");
    EXPECT_EQ(Wrapped(u"eins zwei drei", 8), u"eins\r\nzwei\r\ndrei");
    EXPECT_EQ(Wrapped(u"eins zwei drei", 14), u"eins zwei drei");
    EXPECT_EQ(Wrapped(u"eins zwei drei", 13), u"eins zwei\r\ndrei");
}

TEST(WordWrapTest, TheBlankAtABreakIsDropped) {
    const std::u16string wrapped = Wrapped(u"aa bb cc dd ee", 5);
    EXPECT_EQ(wrapped, u"aa bb\r\ncc dd\r\nee");
}

TEST(WordWrapTest, ParagraphsAreWrappedByThemselves) {
    EXPECT_EQ(Wrapped(u"aa bb\r\ncc dd", 3), u"aa\r\nbb\r\ncc\r\ndd");
    EXPECT_EQ(Wrapped(u"aa\r\n\r\nbb\r\n", 9), u"aa\r\n\r\nbb\r\n");
    EXPECT_EQ(Wrapped(u"\r\n", 9), u"\r\n");
}

TEST(WordWrapTest, LoneLineEndsBecomeBlanks) {
    EXPECT_EQ(Wrapped(u"aa\rbb\ncc", 80), u"aa bb cc");
    EXPECT_EQ(Wrapped(u"aa\n\rbb", 80), u"aa bb");
    EXPECT_EQ(Wrapped(u"aa\r\r\nbb", 80), u"aa\r\nbb");
}

TEST(WordWrapTest, RunsOfBlanksShrinkOncePerPass) {
    const std::size_t left[] = {1, 1, 2, 2, 1, 1, 2, 2, 3, 3, 2};
    for (std::size_t count = 1; count <= std::size(left); ++count) {
        EXPECT_EQ(Wrapped(u"a" + std::u16string(count, u' ') + u"b", 80),
                  u"a" + std::u16string(left[count - 1], u' ') + u"b")
            << count;
    }
}

TEST(WordWrapTest, ParagraphsAreTrimmed) {
    EXPECT_EQ(Wrapped(u"  aa bb  \r\n  cc ", 80), u"aa bb\r\ncc");
    EXPECT_EQ(Wrapped(u"    ", 80), u"");
}

TEST(WordWrapTest, NoBlanksRemainAroundABreak) {
    EXPECT_EQ(Wrapped(u"aaaa   bbbb", 4), u"aaaa\r\nbbbb");
    EXPECT_EQ(Wrapped(u"aaaa   bbbb", 5), u"aaaa\r\nbbbb");
    EXPECT_EQ(Wrapped(u"aaaa   bbbb", 10), u"aaaa  bbbb");
}

TEST(WordWrapTest, AParagraphWithAnOverlongWordStaysAsItIs) {
    EXPECT_EQ(Wrapped(u"  a   zulang\nb \r\nkurz kurz", 5), u"  a   zulang\nb \r\nkurz\r\nkurz");
    EXPECT_EQ(Wrapped(u"abc", 0), u"abc");
}

}  // namespace
}  // namespace tarvex
