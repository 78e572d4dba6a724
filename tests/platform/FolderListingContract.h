#pragma once

#include <algorithm>

#include "platform/FolderListing.h"
#include "tests/support/TestFolder.h"

namespace tarvex {

/// What every real FolderListing does.
template <class Listing>
class FolderListingContract : public testing::Test {
protected:
    using Names = std::optional<std::vector<std::u16string>>;

    Names Sorted(std::u16string_view path) const {
        Names names = listing.FilesIn(path);
        if (names) {
            std::sort(names->begin(), names->end());
        }
        return names;
    }

    TestFolder folder;
    Listing listing;
};

TYPED_TEST_SUITE_P(FolderListingContract);

TYPED_TEST_P(FolderListingContract, FilesAreNamedAndFoldersAreNot) {
    this->folder.MakeFile(u"b.pc", "x");
    this->folder.MakeFile(u"Größe €.pc", "");
    this->folder.MakeFolder(u"Ordner.pc");
    const std::vector<std::u16string> expected = {u"Größe €.pc", u"b.pc"};
    EXPECT_EQ(this->Sorted(this->folder.Path()), expected);
    EXPECT_EQ(this->Sorted(this->folder.Path() + u"/"), expected);
}

TYPED_TEST_P(FolderListingContract, EmptyFolderHasNoNames) {
    EXPECT_EQ(this->Sorted(this->folder.Path()), std::vector<std::u16string>());
}

TYPED_TEST_P(FolderListingContract, WhatIsNoFolderGivesNothing) {
    this->folder.MakeFile(u"a.pc", "x");
    EXPECT_EQ(this->Sorted(this->folder.Path(u"a.pc")), std::nullopt);
    EXPECT_EQ(this->Sorted(this->folder.Path(u"fehlt")), std::nullopt);
    EXPECT_EQ(this->Sorted(this->folder.Path(u"*")), std::nullopt);
    EXPECT_EQ(this->Sorted(u""), std::nullopt);
}

REGISTER_TYPED_TEST_SUITE_P(FolderListingContract, FilesAreNamedAndFoldersAreNot,
                            EmptyFolderHasNoNames, WhatIsNoFolderGivesNothing);

}  // namespace tarvex
