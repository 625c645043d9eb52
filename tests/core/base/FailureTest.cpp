#include "base/Failure.h"

#include <gtest/gtest.h>

namespace quillmark {
namespace {

int numberOf(std::errc error) {
    return failureFromError({static_cast<int>(error), std::system_category()}, pathNotFound())
        .number();
}

TEST(FailureFromError, HasTheNumberOfItsKind) {
    EXPECT_EQ(numberOf(std::errc::no_such_file_or_directory), 76) << "what the caller says";
    EXPECT_EQ(numberOf(std::errc::not_a_directory), 76);
    EXPECT_EQ(numberOf(std::errc::permission_denied), 70);
    EXPECT_EQ(numberOf(std::errc::operation_not_permitted), 70);
    EXPECT_EQ(numberOf(std::errc::read_only_file_system), 70);
    EXPECT_EQ(numberOf(std::errc::no_space_on_device), 1002);
    EXPECT_EQ(numberOf(std::errc::is_a_directory), 1003);
    EXPECT_EQ(errorMessage(overflow()), "An Error Has Occurred (Overflow(6))");
}

} // namespace
} // namespace quillmark
