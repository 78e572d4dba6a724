#include <gtest/gtest.h>

#include "platform/win32/Win32FolderListing.h"
#include "tests/platform/FolderListingContract.h"

namespace tarvex {

INSTANTIATE_TYPED_TEST_SUITE_P(Win32, FolderListingContract, Win32FolderListing);

}  // namespace tarvex
