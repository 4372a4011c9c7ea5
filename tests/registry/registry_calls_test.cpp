// Which calls the operations that the program uses make of the platform, whatever they answer.
#include <gtest/gtest.h>

#include "tests/registry/registry_operations.h"

namespace pointalk {
namespace {

TEST(RegistryCalls, OfWritingAndDeletingAValue) {
  for (const testing::OperationRow& row : testing::UsedOperations()) {
    testing::RecordedLayer on(row.codes);
    row.run(on.layer);
    EXPECT_EQ(on.registry.calls, row.calls) << row.what;
  }
}

}  // namespace
}  // namespace pointalk
