#include "base/Paths.h"
#include "integration/command/CommandBench.h"
#include "platform/ProgramFolder.h"
#include "settings/DefaultSettings.h"
#include "settings/ProfileFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

namespace quillmark::test {
namespace {

namespace fs = std::filesystem;

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

TEST(CheckCommand, TellsWhatIsWrongWithTheSite) {
    const CommandBench bench;
    bench.writeBrokenSite();
    const Finished result = bench.check({"--no-progress", bench.start()});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, HasSubstr("1 page read, 2 references, 3 files in 1 folder"));
    EXPECT_THAT(result.out, HasSubstr("1 invalid reference\n  index.html\n      gone.html\n"));
    EXPECT_THAT(result.out, HasSubstr("1 unused file "));
    EXPECT_THAT(result.out, Not(HasSubstr("\x1B")));
    EXPECT_THAT(result.err, AllOf(HasSubstr("Starting...\n"), HasSubstr("Quillmark Finished\n")));
    EXPECT_THAT(result.err, Not(HasSubstr("Check Command: ")));
    const Finished again = bench.check({"--color", bench.site.path().string()});
    EXPECT_THAT(again.err, IsEmpty()) << "there is no terminal";
    EXPECT_THAT(again.out, HasSubstr("\x1B[1;31m1 invalid reference"));
    EXPECT_THAT(bench.check({"-v", bench.start()}).err,
                HasSubstr("Check Command: a href=\"#top\"\n"));
}

TEST(CheckCommand, JsonHoldsEveryList) {
    const CommandBench bench;
    bench.site.write("index.html", "<a href=\"m\xFC.html\">\r\n");
    const Finished result = bench.check({"--json", "-", bench.start()});
    const auto json = nlohmann::ordered_json::parse(result.out);
    EXPECT_EQ(json["outcome"], "finished");
    EXPECT_EQ(json["mode"], "local");
    EXPECT_EQ(json["baseUrl"], "");
    EXPECT_TRUE(json["statistics"].is_null());
    Words names;
    for (const auto& list : json["lists"].items()) {
        names.push_back(list.key());
    }
    EXPECT_EQ(names, (Words{"DirectoryList", "FileList", "FileSizes", "GetFileList",
                            "ReferenceList", "ReferenceListFrom", "InvalidReferences",
                            "InvalidReferencesFrom", "IgnoredReferences", "IgnoredReferencesFrom",
                            "UnusedList", "DuplicateList", "Message"}));
    EXPECT_EQ(json["lists"]["InvalidReferences"],
              Words{bench.site.path().string() + "/m\xEF\xBF\xBD.html"});
    EXPECT_EQ(json["lists"]["Message"].back(), "Quillmark Finished");
    EXPECT_THAT(bench.check({"--list", "invalidreferences", "-q", bench.start()}).out,
                HasSubstr("/m\xFC.html\t" + bench.start() + "\n"));
}

TEST(CheckCommand, WritesFilesOnlyWhereItIsTold) {
    const CommandBench bench;
    bench.writeBrokenSite();
    const Finished result = bench.check({"--report", "r.txt", "--json", "r.json", bench.start()});
    EXPECT_THAT(result.out, IsEmpty());
    EXPECT_THAT(bench.workingFolder.read("r.txt"),
                HasSubstr("Quillmark Version 3.5.0\r\nResults For \r\n"));
    EXPECT_EQ(nlohmann::json::parse(bench.workingFolder.read("r.json"))["outcome"], "finished");
    EXPECT_EQ(bench.site.read("orphan.txt"), "?");
    const fs::recursive_directory_iterator files(bench.site.path());
    EXPECT_EQ(std::distance(files, {}), 3) << "nothing is added to the site";
}

TEST(CheckCommand, KeepsItsFilesWithTheUserOnceItIsInstalled) {
    CommandBench bench;
    bench.writeBrokenSite();
    const std::string installed = bench.program.write("bin/quillmark-check", "").string();
    fs::copy_file(QUILLMARK_CHECK, installed, fs::copy_options::overwrite_existing);
    fs::permissions(installed, fs::perms::owner_all);
    EXPECT_EQ(run({{installed, "-q", bench.start()},
                   bench.workingFolder.path(),
                   {{"QUILLMARK_FOLDER", ""}, {"XDG_DATA_HOME", bench.program.path()}}})
                  .status,
              1);
    EXPECT_FALSE(fs::exists(bench.program.path() / "bin" / "Quillmark.ini"));
    EXPECT_TRUE(fs::exists(bench.program.path() / "quillmark" / "Quillmark.ini"));
}

TEST(CheckCommand, TellsWhenItCouldNotReadTheSite) {
    const CommandBench bench;
    bench.site.write("index.html", "<a href=\"gone.html\">\n");
    const Finished result = bench.check({"-q", bench.start()});
    EXPECT_EQ(result.status, 0) << "nothing was found";
    EXPECT_THAT(result.err,
                HasSubstr("1 of 1 page was not read to the end: 21 of 21 bytes were left out."));
    bench.site.write("index.html", "<a href=\"https://a.example/\">\r\n"
                                   "<a href=\"HTTPS://b.example/\">\r\n</html>");
    EXPECT_THAT(bench.check({"-q", bench.start()}).err,
                AllOf(HasSubstr("quillmark-check: 2 references that begin with \"https:\""),
                      Not(HasSubstr("not read"))));
    EXPECT_THAT(bench.check({"-q", "--set", "MAKE_ADDITION=HTTPS:", bench.start()}).err, IsEmpty());
}

TEST(CheckCommand, SaysOnceWhyItDidNotReachItsEnd) {
    const CommandBench bench;
    for (const Words& words : {Words{}, Words{"-q"}, Words{"--json", "-"},
                               Words{"-q", "--report", "r.txt"}, Words{"--output", "csv"}}) {
        Words all = {"--host", "127.0.0.1", "--port", "1", "--start", "/index.html"};
        all.insert(all.end(), words.begin(), words.end());
        const Finished result = bench.check(all);
        EXPECT_EQ(result.status, 3);
        const bool summary = words.size() < 2;
        EXPECT_EQ(result.err.find("Unable to connect") == std::string::npos, summary) << result.err;
        EXPECT_EQ(result.out.find("Its last messages") != std::string::npos, summary) << result.out;
    }
}

TEST(CheckCommand, RefusesWhatCannotStart) {
    const CommandBench bench;
    bench.writeBrokenSite();
    const std::string start = bench.start();
    const std::string site = bench.site.path().string();
    fs::create_symlink("index.html", site + "/linked.html");
    bench.site.write(".hidden.html", "");
    const std::vector<std::pair<Words, std::string>> cases = {
        {{}, "a start file, --profile NAME or --host NAME"},
        {{"nowhere.html"}, "there is no start file \"nowhere.html\""},
        {{bench.program.path().string()}, "is a folder; name the start file in it, such as "},
        {{site + "/linked.html"}, "is a symbolic link"},
        {{site + "/.hidden.html"}, "is hidden"},
        {{"--set", "START_PATH=" + ToBackSlashes(site + "/linked.html"), start}, ": " + start},
        {{"--profile", "x"}, "there is no profile \"x\""},
        {{"--profile", "x", start}, "--profile"},
        {{"--frob", start}, "--frob"},
        {{"--set", "FOO=1", start}, "there is no setting \"FOO\""},
        {{"--set", "MAX_LEVELS", start}, "--set takes KEY=VALUE"},
        {{"--set", "MAX_LEVELS=many", start}, "MAX_LEVELS takes a whole number"},
        {{"--set", "USER_PASSWORD=secret", start}, "password"},
        {{"--list", "Foo", start}, "there is no list \"Foo\""},
        {{"--json", "-", "--list", "FileList", start}, "standard output"},
        {{"--report", "none/r.txt", start}, "\"none/r.txt\" cannot be written"},
        {{"--folder", start, start}, "own folder"},
        {{"profile", "save", "", "--set", "MAX_LEVELS=1"}, "a profile needs a name"},
        {{"--set", "START_PATH=\\x\\index.html", start}, "there is no start file"},
        {{"--encryption", "ssl", start}, "ssl not in {none,tls,implicit,sftp}"},
        {{"--connections", "17", start}, "--connections"},
        {{"--encryption", "tls", "--trust", "yes", start}, "takes a SHA-256"},
        {{"--trust", Fingerprint, start}, "--trust needs --encryption tls, implicit or sftp"},
        {{"--encryption", "tls", "--key", "key", start}, "--key needs --encryption sftp"},
        {{"--host", "h", "--user", "me", "--start", "/i.html", "--encryption", "sftp", "--key",
          "none"},
         "none\" cannot be read"},
    };
    for (const auto& [words, error] : cases) {
        SCOPED_TRACE(error);
        const Finished result = bench.check(words);
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.out, IsEmpty());
        EXPECT_THAT(result.err, AllOf(HasSubstr("quillmark-check: "), HasSubstr(error),
                                      Not(HasSubstr("secret"))));
    }
}

TEST(CheckCommand, RunsAProfileAndSettingsForOneRun) {
    const CommandBench bench;
    bench.writeBrokenSite();
    bench.site.write("deep/pic.gif", "GIF");
    Settings settings;
    SetDefaultSettings(settings);
    settings.profile.START_PATH = ToBackSlashes(bench.start());
    settings.profile.CHECK_DUPES = 1;
    ProgramFolder files(ToBackSlashes(bench.program.path().string()));
    SaveProfile(settings, files, "My Site");
    const auto lists = bench.json({"--profile", "My Site"})["lists"];
    EXPECT_EQ(lists["DuplicateList"].size(), 1U);
    const auto shallow = bench.json(
        {"--profile", "My Site", "--set", "MAX_LEVELS=1", "--set", "CHECK_COMMAND=HREF"})["lists"];
    EXPECT_EQ(shallow["DuplicateList"].size(), 0U);
    EXPECT_EQ(shallow["ReferenceList"].size(), 1U);
    EXPECT_EQ(bench.json({"--profile", "My Site"})["lists"], lists) << "--set is forgotten";
    EXPECT_THAT(bench.check({"--profile", "none"}).err, HasSubstr("the profiles are: My Site"));
}

TEST(CheckCommand, ResetsAnOldConfigurationWithANotice) {
    const CommandBench bench;
    bench.site.write("index.html", "");
    bench.program.write("Quillmark.ini", "[old]\r\n");
    const Finished result = bench.check({"-q", bench.start()});
    EXPECT_EQ(result.status, 0) << "a clean site";
    EXPECT_THAT(result.out, HasSubstr("0 invalid references"));
    EXPECT_THAT(result.err, HasSubstr("older version of Quillmark"));
    EXPECT_THAT(result.err, HasSubstr("Settings will be reset"));
    EXPECT_THAT(bench.program.read("Quillmark.ini"), HasSubstr("#CODE_MASKS=6\r\n"));
    EXPECT_THAT(bench.check({"-q", bench.start()}).err, IsEmpty());
}

TEST(CheckCommand, HostileNamesDoNotSteerTheTerminal) {
    const CommandBench bench;
    bench.site.write("index.html", "<a href=\"\x1B]0;owned\x07\xC2\x9D\xFF\xC3\xA4.gif\">\r\n");
    const Finished result = bench.check({"-v", bench.start()});
    EXPECT_THAT(result.out + result.err, Not(HasSubstr("\x1B")));
    EXPECT_THAT(result.out, HasSubstr("\\x1B]0;owned\\x07\\xC2\\x9D\\xFF\xC3\xA4.gif"));
    EXPECT_THAT(bench.check({"\x1B[2J.html"}).err, HasSubstr("\"\\x1B[2J.html\""));
    EXPECT_THAT(bench.check({bench.start(), "\x1B[2J.html"}).err, HasSubstr("\\x1B[2J.html"));
}

TEST(CheckCommand, ARefusedRunIsNotTheFirst) {
    const CommandBench bench;
    EXPECT_EQ(bench.check({bench.start()}).status, 2);
    EXPECT_EQ(bench.check({"--host", "127.0.0.1", "--user", "me", "--start", "/i.html"}).status, 2);
    EXPECT_TRUE(fs::is_empty(bench.program.path()));
    bench.site.write("index.html", "<a href=\"INDEX.HTML\">\r\n");
    EXPECT_EQ(bench.check({bench.start()}).status, 0) << "capital letters are ignored";
    EXPECT_EQ(bench.check({bench.start()}).status, 1) << "and not any more";
}

/// Pages large enough that a run is still reading them when the signal comes.
void writeLongSite(const TempFolder& site) {
    std::string index;
    for (int i = 0; i < 200; ++i) {
        const std::string name = std::to_string(i) + ".html";
        index += "<a href=\"" + name + "\">\r\n";
        std::filesystem::resize_file(site.write(name, ""), 4'000'000);
    }
    site.write("index.html", index);
}

void waitUntilReading(Process& process) {
    while (process.running() && process.errSoFar().find("Retrieving") == std::string::npos) {
    }
    ASSERT_TRUE(process.running());
}

TEST(CheckCommand, ASecondSignalEndsTheRunAtOnce) {
    const CommandBench bench;
    writeLongSite(bench.site);
    Process process(bench.command({"--no-progress", bench.start()}));
    waitUntilReading(process);
    for (const int number : {SIGSTOP, SIGINT, SIGTERM, SIGCONT}) {
        process.signal(number); // Both are there when it goes on.
    }
    const Finished result = process.wait();
    EXPECT_TRUE(result.status == 128 + SIGINT || result.status == 128 + SIGTERM) << result.status;
    EXPECT_THAT(result.out, IsEmpty());
}

TEST(CheckCommand, EverySignalThatEndsProgramsStopsTheRun) {
    for (const int number : {SIGTERM, SIGHUP}) {
        const CommandBench bench;
        writeLongSite(bench.site);
        Process process(bench.command({"--no-progress", bench.start()}));
        waitUntilReading(process);
        process.signal(number);
        const Finished result = process.wait();
        EXPECT_EQ(result.status, 3);
        EXPECT_THAT(result.out, AllOf(HasSubstr("The run was aborted"),
                                      HasSubstr("invalid references not looked for\n"),
                                      HasSubstr("unused files not looked for\n")));
    }
}

TEST(CheckCommand, InterruptStopsTheOnlyRunOfAFolderAndKeepsItsResults) {
    const CommandBench bench;
    writeLongSite(bench.site);
    Process process(bench.command({"--no-progress", "--json", "r.json", bench.start()}));
    waitUntilReading(process);
    const Finished second = bench.check({bench.start()});
    EXPECT_EQ(second.status, 2);
    EXPECT_THAT(second.err, HasSubstr("another check is running"));
    const std::string page = bench.workingFolder.write("1.html", "").string();
    EXPECT_EQ(bench.check({"--folder", "other", "-q", page}).status, 0);
    process.signal(SIGINT);
    const Finished result = process.wait();
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.err, HasSubstr("Stopping Quillmark...Please Wait\n"));
    EXPECT_THAT(result.err, HasSubstr("Quillmark Aborted\n"));
    const auto json = nlohmann::json::parse(bench.workingFolder.read("r.json"));
    EXPECT_EQ(json["outcome"], "aborted");
    EXPECT_EQ(json["lists"]["FileList"].size(), 201U);
    EXPECT_LT(json["lists"]["GetFileList"].size(), 201U);
}

} // namespace
} // namespace quillmark::test
