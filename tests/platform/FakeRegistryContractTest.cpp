#include "tests/platform/RegistryContract.h"
#include "tests/support/FakeRegistry.h"

namespace tarvex {

namespace {

struct FakeWorld : FakeRegistry {
    const Registry& registry() const { return *this; }
};

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, RegistryContract, FakeWorld);

}  // namespace tarvex
