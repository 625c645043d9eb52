#include "windows/support/WindowTest.h"

#include <QApplication>
#include <QTest>

#include <iostream>

// After the name of a class come the arguments of QtTest.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QStringList arguments = QApplication::arguments();
    const auto& tests = quillmark::test::windowTests();
    const auto test = tests.find(arguments.size() > 1 ? arguments.takeAt(1).toStdString() : "");
    if (test == tests.end()) {
        std::cerr << "usage: window_tests CLASS [argument of QtTest...]\n";
        return 2;
    }
    return QTest::qExec(test->second().get(), arguments);
}
