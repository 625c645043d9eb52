#pragma once

#include <QObject>

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace quillmark::test {

/// What makes the tests of a class, by its name.
inline std::map<std::string, std::function<std::unique_ptr<QObject>()>>& windowTests() {
    static std::map<std::string, std::function<std::unique_ptr<QObject>()>> tests;
    return tests;
}

} // namespace quillmark::test

/// Stands at the end of a file of tests.
#define QUILLMARK_WINDOW_TEST(Test)                                                                \
    const bool made##Test =                                                                        \
        quillmark::test::windowTests()                                                             \
            .emplace(#Test, [] { return std::make_unique<quillmark::test::Test>(); })              \
            .second;
