#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "branding/cuBrand.h"
#include "tests/branding/BrandTesting.h"
#include "tests/support/FakeBinaryFiles.h"
#include "tests/support/FakeBrandConstants.h"

namespace tarvex {

/// A cuBrand over files in memory, and constants of the test's own.
class cuBrandFixture : public testing::Test {
protected:
    static constexpr std::u16string_view kPath = u"C:\\Prog\\Start.exe";

    /// Opens a file with these bytes in `brand`.
    void OpenFile(std::string bytes) {
        files.AddFile(kPath, std::move(bytes));
        brand.SetFileName(kPath);
    }

    /// A file of two whole blocks with an unbranded or branded marker and two marks.
    static FileBytes TwoMarks(bool branded) {
        FileBytes bytes(2 * kBlock);
        bytes.Put(64, MarkerText(branded));
        bytes.Put(1024, Mark(13, 255, u"DBPath", u"Daten"));
        bytes.Put(40001, Mark(66, 5, u"HCID", u"12"));
        return bytes;
    }

    const std::string& Bytes() const { return files.Bytes(kPath); }

    /// The text at a 0-based offset of the file.
    std::u16string TextAt(std::size_t offset, std::size_t length) const {
        return FromUtf16Bytes(std::string_view(Bytes()).substr(offset, 2 * length));
    }

    FakeBinaryFiles files;
    FakeBrandConstants constants;
    cuBrand brand{&files, &constants};
};

}  // namespace tarvex
