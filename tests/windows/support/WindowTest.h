#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <string>

namespace quillmark::test {

/// Has the program of the window tests run a class of them when its name is the first argument.
class WindowTest {
public:
    using Make = std::function<std::unique_ptr<QObject>()>;

    WindowTest(const std::string& name, Make make);

    /// The tests of a class, or nothing when no class has the name.
    static std::unique_ptr<QObject> make(const std::string& name);
};

} // namespace quillmark::test

/// Stands at the end of a file of tests.
#define QUILLMARK_WINDOW_TEST(Test)                                                                \
    const quillmark::test::WindowTest made##Test(                                                  \
        #Test, [] { return std::make_unique<quillmark::test::Test>(); });
