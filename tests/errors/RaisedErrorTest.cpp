#include "errors/RaisedError.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "errors/RuntimeErrors.h"
#include "platform/FileStore.h"

namespace tarvex {
namespace {

template <class Thrown>
RaisedError ErrorFor(const Thrown& thrown) {
    try {
        throw thrown;
    } catch (...) {
        return CurrentError();
    }
}

RaisedError PassedOn(std::u16string_view place, const RaisedError& thrown) {
    try {
        AtPlace(place, [&thrown] { throw thrown; });
    } catch (const RaisedError& error) {
        return error;
    }
    return {};
}

TEST(ExtendSourceTest, PlacesFollowTheInnermostOne) {
    RaisedError error;
    ExtendSource(error, u"cuBrand: ReadData");
    EXPECT_EQ(error.source, u"cuBrand: ReadData");
    ExtendSource(error, u"cuBrand: Save");
    EXPECT_EQ(error.source, u"cuBrand: ReadData | cuBrand: Save");
}

TEST(CurrentErrorTest, ARaisedErrorStaysAsItIs) {
    const RaisedError error =
        ErrorFor(RaisedError{-2147220475, u"Quelle", u"Text", u"C:\\h.chm", 42, 12});
    EXPECT_EQ(error.number, -2147220475);
    EXPECT_EQ(error.source, u"Quelle");
    EXPECT_EQ(error.description, u"Text");
    EXPECT_EQ(error.helpFile, u"C:\\h.chm");
    EXPECT_EQ(error.helpContext, 42);
    EXPECT_EQ(error.line, 12);
}

struct FileFailureCase {
    FileProblem problem;
    std::int32_t number;
    const char16_t* description;
};

class FileFailureTest : public testing::TestWithParam<FileFailureCase> {};

TEST_P(FileFailureTest, BecomesARuntimeError) {
    const RaisedError error = ErrorFor(FileFailure{GetParam().problem});
    EXPECT_EQ(error.number, GetParam().number);
    EXPECT_EQ(error.description, GetParam().description);
    EXPECT_EQ(error.source, u"");
    EXPECT_EQ(error.line, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Problems, FileFailureTest,
    testing::Values(
        FileFailureCase{FileProblem::NotFound, 53, u"Datei nicht gefunden"},
        FileFailureCase{FileProblem::PathNotFound, 76, u"Pfad nicht gefunden"},
        FileFailureCase{FileProblem::AccessDenied, 75, u"Fehler beim Zugriff auf Pfad/Datei"},
        FileFailureCase{FileProblem::IsFolder, 75, u"Fehler beim Zugriff auf Pfad/Datei"},
        FileFailureCase{FileProblem::InUse, 70, u"Zugriff verweigert"},
        FileFailureCase{FileProblem::Locked, 70, u"Zugriff verweigert"},
        FileFailureCase{FileProblem::DiskFull, 61, u"Datenträger voll"},
        FileFailureCase{FileProblem::Device, 57, u"E/A-Fehler"}));

TEST(CurrentErrorTest, ExceptionsOfTheLibraryBecomeRuntimeErrors) {
    EXPECT_EQ(ErrorFor(std::bad_alloc()).number, 7);
    EXPECT_EQ(ErrorFor(std::bad_alloc()).description, u"Nicht genügend Speicher");
    EXPECT_EQ(ErrorFor(std::runtime_error("boom")).number, 51);
    EXPECT_EQ(ErrorFor(std::runtime_error("boom")).description, u"Interner Fehler: boom");
    EXPECT_EQ(ErrorFor(std::length_error("zu lang")).description, u"Interner Fehler: zu lang");
    EXPECT_EQ(ErrorFor(std::out_of_range("vector")).description, u"Interner Fehler: vector");
}

TEST(CurrentErrorTest, AnythingElseIsAnInternalError) {
    EXPECT_EQ(ErrorFor(17).number, 51);
    EXPECT_EQ(ErrorFor(17).description, u"Interner Fehler");
}

TEST(AtPlaceTest, ReturnsWhatTheBodyReturns) {
    int value = 1;
    EXPECT_EQ(AtPlace(u"x", [] { return 42; }), 42);
    AtPlace(u"x", [&value]() -> int& { return value; }) = 7;
    EXPECT_EQ(value, 7);
}

TEST(AtPlaceTest, AddsThePlaceAndKeepsTheRest) {
    const RaisedError error =
        PassedOn(u"Application: Init",
                 RaisedError{-2147220475, u"cuTarvex: GetDBPath", u"Text", u"C:\\h.chm", 42, 12});
    EXPECT_EQ(error.source, u"cuTarvex: GetDBPath | Application: Init");
    EXPECT_EQ(error.number, -2147220475);
    EXPECT_EQ(error.description, u"Text");
    EXPECT_EQ(error.helpFile, u"C:\\h.chm");
    EXPECT_EQ(error.helpContext, 42);
    EXPECT_EQ(error.line, 12);
}

TEST(AtPlaceTest, AForeignExceptionBecomesAnErrorWithThatPlace) {
    try {
        AtPlace(u"cuBrand: Save", [] { throw FileFailure{FileProblem::DiskFull}; });
        FAIL() << "nothing was raised";
    } catch (const RaisedError& error) {
        EXPECT_EQ(error.number, 61);
        EXPECT_EQ(error.source, u"cuBrand: Save");
    }
}

struct RuntimeErrorCase {
    std::int32_t number;
    const char16_t* description;
};

class RuntimeErrorTest : public testing::TestWithParam<RuntimeErrorCase> {};

TEST_P(RuntimeErrorTest, HasItsGermanText) {
    const RaisedError error = MakeError(static_cast<RuntimeError>(GetParam().number));
    EXPECT_EQ(error.number, GetParam().number);
    EXPECT_EQ(error.description, GetParam().description);
    EXPECT_EQ(error.source, u"");
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, RuntimeErrorTest,
    testing::Values(
        RuntimeErrorCase{5, u"Ungültiger Prozeduraufruf oder ungültiges Argument"},
        RuntimeErrorCase{6, u"Überlauf"}, RuntimeErrorCase{7, u"Nicht genügend Speicher"},
        RuntimeErrorCase{9, u"Index außerhalb des gültigen Bereichs"},
        RuntimeErrorCase{13, u"Typen unverträglich"}, RuntimeErrorCase{51, u"Interner Fehler"},
        RuntimeErrorCase{52, u"Dateiname oder -nummer falsch"},
        RuntimeErrorCase{53, u"Datei nicht gefunden"}, RuntimeErrorCase{57, u"E/A-Fehler"},
        RuntimeErrorCase{61, u"Datenträger voll"}, RuntimeErrorCase{70, u"Zugriff verweigert"},
        RuntimeErrorCase{75, u"Fehler beim Zugriff auf Pfad/Datei"},
        RuntimeErrorCase{76, u"Pfad nicht gefunden"},
        RuntimeErrorCase{91, u"Objektvariable nicht festgelegt"},
        RuntimeErrorCase{
            457, u"Dieser Schlüssel ist bereits einem Element dieser Auflistung zugeordnet"}),
    [](const auto& each) { return std::to_string(each.param.number); });

TEST(RuntimeErrorDetailTest, OnlyAnInternalErrorTakesADetail) {
    EXPECT_EQ(MakeError(RuntimeError::Internal, u"Grund").description, u"Interner Fehler: Grund");
    EXPECT_EQ(MakeError(RuntimeError::Overflow, u"Grund").description, u"Überlauf");
}

}  // namespace
}  // namespace tarvex
