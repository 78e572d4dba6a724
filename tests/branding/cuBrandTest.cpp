#include "branding/cuBrand.h"

#include <gtest/gtest.h>

#include "tests/branding/cuBrandFixture.h"

namespace tarvex {
namespace {

class cuBrandTest : public cuBrandFixture {};

TEST_F(cuBrandTest, NewObjectIsInFileModeWithNothingOpen) {
    EXPECT_EQ(brand.Mode(), BrandMode::File);
    EXPECT_EQ(brand.FileName(), u"");
    EXPECT_EQ(brand.FileNumber(), 0);
    EXPECT_FALSE(brand.DenyMultiBranding());
    EXPECT_EQ(brand.Brandings().Count(), 0U);
    EXPECT_EQ(brand.BrandInformation(), BrandState::Unknown);
}

TEST_F(cuBrandTest, StatesHaveTheirNumbers) {
    EXPECT_EQ(static_cast<int>(BrandMode::File), 0);
    EXPECT_EQ(static_cast<int>(BrandMode::Constants), 1);
    EXPECT_EQ(static_cast<int>(BrandState::Unknown), 0);
    EXPECT_EQ(static_cast<int>(BrandState::NoIdentifier), 2);
    EXPECT_EQ(static_cast<int>(BrandState::Branded), 4);
    EXPECT_EQ(static_cast<int>(BrandState::NotYetBranded), 8);
}

TEST_F(cuBrandTest, FileNameOpensTheFile) {
    OpenFile("x");
    EXPECT_EQ(brand.FileName(), kPath);
    EXPECT_NE(brand.FileNumber(), 0);
    EXPECT_EQ(files.log, (std::vector<std::u16string>{u"exists C:\\Prog\\Start.exe",
                                                      u"open C:\\Prog\\Start.exe"}));
}

TEST_F(cuBrandTest, MissingFileIsNotCreated) {
    ExpectError(ErrorOf([&] { brand.SetFileName(u"C:\\Prog\\Fehlt.exe"); }), -2147221496,
                u"Die Datei 'C:\\Prog\\Fehlt.exe' ist nicht vorhanden.",
                u"cuBrand: Filename (Let)");
    EXPECT_EQ(files.log, std::vector<std::u16string>{u"exists C:\\Prog\\Fehlt.exe"});
    EXPECT_EQ(brand.FileNumber(), 0);
}

TEST_F(cuBrandTest, FolderIsNoFile) {
    files.AddFolder(u"C:\\Prog");
    ExpectError(ErrorOf([&] { brand.SetFileName(u"C:\\Prog"); }), -2147221496,
                u"Die Datei 'C:\\Prog' ist nicht vorhanden.", u"cuBrand: Filename (Let)");
}

TEST_F(cuBrandTest, FileThatCannotBeOpenedIsARuntimeError) {
    files.AddFile(kPath, "x", true);
    ExpectError(ErrorOf([&] { brand.SetFileName(kPath); }), 75,
                u"Fehler beim Zugriff auf Pfad/Datei", u"cuBrand: Filename (Let)");
    files.AddFile(kPath, "x");
    files.failCall = files.log.size() + 2;
    files.failure = FileProblem::InUse;
    ExpectError(ErrorOf([&] { brand.SetFileName(kPath); }), 70, u"Zugriff verweigert",
                u"cuBrand: Filename (Let)");
    EXPECT_EQ(brand.FileNumber(), 0);
    EXPECT_EQ(brand.FileName(), u"");
}

TEST_F(cuBrandTest, NewNameClosesTheOldFile) {
    OpenFile("x");
    files.AddFile(u"C:\\Zweite.exe", "y");
    brand.SetFileName(u"C:\\Zweite.exe");
    EXPECT_EQ(brand.FileName(), u"C:\\Zweite.exe");
    EXPECT_EQ(files.log[2], u"close");
    EXPECT_EQ(files.log.size(), 5U);
}

TEST_F(cuBrandTest, FailingNameClosesTheOldFileToo) {
    OpenFile("x");
    ErrorOf([&] { brand.SetFileName(u"C:\\Fehlt.exe"); });
    EXPECT_EQ(files.log[2], u"close");
    EXPECT_EQ(brand.FileNumber(), 0);
    EXPECT_EQ(brand.FileName(), u"");
}

TEST_F(cuBrandTest, EmptyNameOnlyCloses) {
    OpenFile("x");
    brand.SetFileName(u"");
    EXPECT_EQ(brand.FileName(), u"");
    EXPECT_EQ(brand.FileNumber(), 0);
    EXPECT_EQ(files.log.size(), 3U);
    EXPECT_EQ(files.log.back(), u"close");
}

TEST_F(cuBrandTest, EndOfTheObjectClosesTheFile) {
    files.AddFile(kPath, "x");
    {
        cuBrand local(&files, nullptr);
        local.SetFileName(kPath);
    }
    EXPECT_EQ(files.log.back(), u"close");
}

TEST_F(cuBrandTest, FileModeWithoutFilesIsAnError) {
    cuBrand local(nullptr, &constants);
    EXPECT_EQ(ErrorOf([&] { local.SetFileName(kPath); }).number, 91);
}

TEST_F(cuBrandTest, StateOfAFileComesFromItsMarker) {
    OpenFile(FileBytes(kBlock).Put(100, u"@#BRANDED0#@"));
    EXPECT_EQ(brand.GetBrandInformation(), BrandState::NotYetBranded);
    EXPECT_EQ(brand.BrandInformation(), BrandState::Unknown);
    OpenFile(FileBytes(kBlock).Put(100, u"@#BRANDED1#@"));
    EXPECT_EQ(brand.GetBrandInformation(), BrandState::Branded);
    OpenFile(FileBytes(kBlock));
    EXPECT_EQ(brand.GetBrandInformation(), BrandState::NoIdentifier);
    OpenFile("");
    EXPECT_EQ(brand.GetBrandInformation(), BrandState::NoIdentifier);
}

TEST_F(cuBrandTest, UnbrandedMarkerCountsMoreThanABrandedOne) {
    OpenFile(FileBytes(kBlock).Put(100, u"@#BRANDED1#@").Put(200, u"@#BRANDED0#@"));
    EXPECT_EQ(brand.GetBrandInformation(), BrandState::NotYetBranded);
}

TEST_F(cuBrandTest, MarkerIsFoundInAnyCaseAndInTheLastPartialBlock) {
    OpenFile(FileBytes(kBlock).Put(100, u"@#Branded1#@"));
    EXPECT_EQ(brand.GetBrandInformation(), BrandState::Branded);
    OpenFile(FileBytes(kBlock + 100).Put(kBlock + 7, u"@#BRANDED1#@"));
    EXPECT_EQ(brand.GetBrandInformation(), BrandState::Branded);
    OpenFile(FileBytes(100).Put(0, u"@#BRANDED0#@"));
    EXPECT_EQ(brand.GetBrandInformation(), BrandState::NotYetBranded);
}

TEST_F(cuBrandTest, StateIsUnknownWhenTheFileCannotBeRead) {
    EXPECT_EQ(brand.GetBrandInformation(), BrandState::Unknown);
    OpenFile(FileBytes(kBlock).Put(100, u"@#BRANDED1#@"));
    files.failCall = files.log.size() + 2;
    EXPECT_EQ(brand.GetBrandInformation(), BrandState::Unknown);
}

TEST_F(cuBrandTest, StateOfTheProgramComesFromItsOwnMarker) {
    brand.SetMode(BrandMode::Constants);
    EXPECT_EQ(brand.BrandInformation(), BrandState::Branded);
    EXPECT_EQ(brand.GetBrandInformation(), BrandState::Branded);
    constants.marker = u"@#branded1#@";
    EXPECT_TRUE(brand.OwnMarkerIsBranded());
    constants.marker = u"@#BRANDED0#@";
    EXPECT_EQ(brand.BrandInformation(), BrandState::NotYetBranded);
    constants.marker = u"@#BRANDED2#@";
    EXPECT_EQ(brand.GetBrandInformation(), BrandState::NotYetBranded);
    EXPECT_TRUE(files.log.empty());
}

TEST_F(cuBrandTest, ConstantsModeWithoutConstantsHasNoState) {
    cuBrand local(&files, nullptr);
    local.SetMode(BrandMode::Constants);
    EXPECT_EQ(local.BrandInformation(), BrandState::Unknown);
}

class cuBrandConstantsTest : public cuBrandFixture {
protected:
    cuBrandConstantsTest() { brand.SetMode(BrandMode::Constants); }
};

TEST_F(cuBrandConstantsTest, FileModeIsRefused) {
    brand.SetMode(BrandMode::File);
    ExpectError(ErrorOf([&] { brand.LoadFomConstants({Mark(1, 2, u"A", u"x")}); }), -2147221498,
                u"Falscher Modus.", u"cuBrand: LoadFomConstants");
}

TEST_F(cuBrandConstantsTest, MarksAreLoadedInOrderAndOtherTextsSkipped) {
    EXPECT_TRUE(brand.LoadFomConstants({Mark(66, 5, u"HCID", u" 12"), u"keine Marke",
                                        u"@#BRD#@|0x1|0001|Defekt|1", Mark(1, 50, u"AppName")}));
    ASSERT_EQ(brand.Brandings().Count(), 2U);
    const cuBranding& first = *brand.Brandings().begin();
    EXPECT_EQ(first.Index(), 66);
    EXPECT_EQ(first.Name(), u"HCID");
    EXPECT_EQ(first.NumChars(), 5);
    EXPECT_EQ(first.Value(), u"12");
    EXPECT_EQ(first.StartPosition(), 0);
    EXPECT_FALSE(brand.Brandings().Dirty());
    EXPECT_EQ(brand.Brandings().Item(1).Value(), u"");
}

TEST_F(cuBrandConstantsTest, UnbrandedProgramIsLoadedWithResultFalse) {
    constants.marker = u"@#BRANDED0#@";
    EXPECT_FALSE(brand.LoadFomConstants({Mark(66, 5, u"HCID", u"12")}));
    EXPECT_EQ(brand.Brandings().Count(), 1U);
    EXPECT_EQ(brand.BrandInformation(), BrandState::NotYetBranded);
}

TEST_F(cuBrandConstantsTest, LoadReplacesWhatWasThere) {
    brand.LoadFomConstants({Mark(66, 5, u"HCID", u"12")});
    EXPECT_TRUE(brand.LoadFomConstants({Mark(66, 5, u"HCID", u"13")}));
    EXPECT_EQ(brand.Brandings().Item(66).Value(), u"13");
    EXPECT_FALSE(brand.LoadFomConstants({}));
    EXPECT_EQ(brand.Brandings().Count(), 0U);
}

TEST_F(cuBrandConstantsTest, StateIsKeptOnlyWhenSomethingWasLoaded) {
    brand.LoadFomConstants({Mark(66, 5, u"HCID")});
    brand.SetMode(BrandMode::File);
    EXPECT_EQ(brand.BrandInformation(), BrandState::Branded);
    brand.SetMode(BrandMode::Constants);
    EXPECT_FALSE(brand.LoadFomConstants({u"keine Marke"}));
    brand.SetMode(BrandMode::File);
    EXPECT_EQ(brand.BrandInformation(), BrandState::Unknown);
}

TEST_F(cuBrandConstantsTest, SecondMarkOfANumberIsAnError) {
    const RaisedError error = ErrorOf([&] {
        brand.LoadFomConstants({Mark(66, 5, u"HCID"), Mark(66, 5, u"HCID")});
    });
    EXPECT_EQ(error.number, 457);
    EXPECT_EQ(error.source, u"cuBrandings: Add | cuBrand: LoadFomConstants");
}

}  // namespace
}  // namespace tarvex
