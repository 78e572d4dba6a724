#include <gtest/gtest.h>

#include "platform/posix/PosixFolderListing.h"
#include "tests/platform/FolderListingContract.h"

namespace tarvex {

INSTANTIATE_TYPED_TEST_SUITE_P(Posix, FolderListingContract, PosixFolderListing);

}  // namespace tarvex
