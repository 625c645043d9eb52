#include "windows/support/WindowTest.h"

#include <QApplication>
#include <QTest>

#include <iostream>
#include <map>
#include <utility>

namespace quillmark::test {

namespace {

std::map<std::string, WindowTest::Make>& known() {
    static std::map<std::string, WindowTest::Make> tests;
    return tests;
}

} // namespace

WindowTest::WindowTest(const std::string& name, Make make) {
    known()[name] = std::move(make);
}

std::unique_ptr<QObject> WindowTest::make(const std::string& name) {
    const auto found = known().find(name);
    return found == known().end() ? nullptr : found->second();
}

} // namespace quillmark::test

// After the name of a class come the arguments of QtTest.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QStringList arguments = QApplication::arguments();
    const QString name = arguments.size() > 1 ? arguments.takeAt(1) : QString();
    const auto test = quillmark::test::WindowTest::make(name.toStdString());
    if (test == nullptr) {
        std::cerr << "usage: window_tests CLASS [argument of QtTest...]\n";
        return 2;
    }
    return QTest::qExec(test.get(), arguments);
}
