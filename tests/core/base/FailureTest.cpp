#include "base/Failure.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillmark {
namespace {

struct ErrorRow {
    const char* name;
    std::errc error;
    int number;
};

class FailureFromErrorTest : public testing::TestWithParam<ErrorRow> {};

TEST_P(FailureFromErrorTest, HasTheNumberOfItsKind) {
    const int number = static_cast<int>(GetParam().error);
    for (const std::error_category* category :
         {&std::generic_category(), &std::system_category()}) {
        EXPECT_EQ(failureFromError({number, *category}, fileNotFound()).number(),
                  GetParam().number);
    }
}

const std::vector<ErrorRow> ErrorRows = {{"MissingFile", std::errc::no_such_file_or_directory, 53},
                                         {"FileForFolder", std::errc::not_a_directory, 53},
                                         {"Permission", std::errc::permission_denied, 70},
                                         {"Operation", std::errc::operation_not_permitted, 70},
                                         {"ReadOnlyDisk", std::errc::read_only_file_system, 70},
                                         {"FullDisk", std::errc::no_space_on_device, 1002},
                                         {"FolderForFile", std::errc::is_a_directory, 1003}};

INSTANTIATE_TEST_SUITE_P(Errors, FailureFromErrorTest, testing::ValuesIn(ErrorRows),
                         [](const auto& row) { return row.param.name; });

TEST(FailureFromError, MissingIsWhatTheCallerSays) {
    const auto error = std::make_error_code(std::errc::no_such_file_or_directory);
    EXPECT_EQ(failureFromError(error, pathNotFound()).number(), 76);
}

TEST(ErrorMessage, NamesDescriptionAndNumber) {
    EXPECT_EQ(errorMessage(overflow()), "An Error Has Occurred (Overflow(6))");
}

} // namespace
} // namespace quillmark
