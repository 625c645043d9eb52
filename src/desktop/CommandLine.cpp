#include "desktop/CommandLine.h"

#include "base/Failure.h"
#include "platform/disk/StartFile.h"
#include "windows/shared/Text.h"

#include <QCommandLineParser>
#include <QFile>
#include <QMap>

#include <cstdio>
#include <cstdlib>

namespace quillmark {

namespace {

constexpr int UsageError = 2;

[[noreturn]] void refuse(const QString& why) {
    std::fputs(qPrintable("quillmark: " + why + "\n"), stderr);
    std::exit(UsageError);
}

ThemeChoice themeOf(const QString& name) {
    const QMap<QString, ThemeChoice> choices = {{"system", ThemeChoice::System},
                                                {"light", ThemeChoice::Light},
                                                {"dark", ThemeChoice::Dark}};
    if (!choices.contains(name)) {
        refuse("a theme is system, light or dark, not \"" + name + "\"");
    }
    return choices.value(name);
}

std::string startPathOfPage(const QString& page) {
    try {
        return startPathOf(QFile::encodeName(page).toStdString());
    } catch (const Failure& failure) {
        refuse(shown(failure.description()));
    }
}

} // namespace

CommandLine readCommandLine(const QCoreApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription("Checks a web site for the person who keeps it.");
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption theme("theme", "Colours: system, light or dark.", "theme", "system");
    parser.addOption(theme);
    parser.addPositionalArgument("page", "A page to start a check from.", "[page]");
    parser.process(application);
    const QStringList pages = parser.positionalArguments();
    if (pages.size() > 1) {
        refuse("one page at a time");
    }
    CommandLine line;
    line.theme = themeOf(parser.value(theme));
    line.startPath = pages.isEmpty() ? std::string() : startPathOfPage(pages.first());
    return line;
}

} // namespace quillmark
