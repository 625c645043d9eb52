#include "base/Paths.h"
#include "integration/command/CommandBench.h"
#include "platform/ProgramFolder.h"
#include "settings/DefaultSettings.h"
#include "settings/ProfileFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <optional>

namespace quillmark::test {
namespace {

namespace fs = std::filesystem;

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string Fingerprint = "SHA256:47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU";

struct CheckCommand : testing::Test, CommandBench {
    /// Starts a check of pages so large that it still reads them when a signal comes.
    Process& runUntilItReads(const Words& more = {}) {
        std::string index;
        for (int i = 0; i < 200; ++i) {
            const std::string name = std::to_string(i) + ".html";
            index += "<a href=\"" + name + "\">\r\n";
            fs::resize_file(site.write(name, ""), 4'000'000);
        }
        site.write("index.html", index);
        Words words = {"--no-progress", start()};
        words.insert(words.end(), more.begin(), more.end());
        Process& process = running.emplace(command(words));
        while (process.running() && process.errSoFar().find("Retrieving") == std::string::npos) {
        }
        EXPECT_TRUE(process.running());
        return process;
    }

    std::optional<Process> running;
};

TEST_F(CheckCommand, TellsWhatIsWrongWithTheSite) {
    writeBrokenSite();
    const Finished result = check({"--no-progress", start()});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, HasSubstr("1 page read, 2 references, 3 files in 1 folder"));
    EXPECT_THAT(result.out, HasSubstr("1 invalid reference\n  index.html\n      gone.html\n"));
    EXPECT_THAT(result.out, HasSubstr("1 unused file "));
    EXPECT_THAT(result.out, Not(HasSubstr("\x1B")));
    EXPECT_THAT(result.err, AllOf(HasSubstr("Starting...\n"), HasSubstr("Quillmark Finished\n")));
    EXPECT_THAT(result.err, Not(HasSubstr("Check Command: ")));
    const Finished again = check({"--color", site.path().string()});
    EXPECT_THAT(again.err, IsEmpty()) << "there is no terminal";
    EXPECT_THAT(again.out, HasSubstr("\x1B[1;31m1 invalid reference"));
    EXPECT_THAT(check({"-v", start()}).err, HasSubstr("Check Command: a href=\"#top\"\n"));
}

TEST_F(CheckCommand, JsonHoldsEveryList) {
    site.write("index.html", "<a href=\"m\xFC.html\">\r\n");
    const Finished result = check({"--json", "-", start()});
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
              Words{site.path().string() + "/m\xEF\xBF\xBD.html"});
    EXPECT_EQ(json["lists"]["Message"].back(), "Quillmark Finished");
    EXPECT_THAT(check({"--list", "invalidreferences", "-q", start()}).out,
                HasSubstr("/m\xFC.html\t" + start() + "\n"));
}

TEST_F(CheckCommand, WritesFilesOnlyWhereItIsTold) {
    writeBrokenSite();
    const Finished result = check({"--report", "r.txt", "--json", "r.json", start()});
    EXPECT_THAT(result.out, IsEmpty());
    EXPECT_THAT(workingFolder.read("r.txt"),
                HasSubstr("Quillmark Version 3.5.0\r\nResults For \r\n"));
    EXPECT_EQ(nlohmann::json::parse(workingFolder.read("r.json"))["outcome"], "finished");
    EXPECT_EQ(site.read("orphan.txt"), "?");
    const fs::recursive_directory_iterator files(site.path());
    EXPECT_EQ(std::distance(files, {}), 3) << "nothing is added to the site";
}

TEST_F(CheckCommand, KeepsItsFilesWithTheUserOnceItIsInstalled) {
    writeBrokenSite();
    const std::string installed = program.write("bin/quillmark-check", "").string();
    fs::copy_file(QUILLMARK_CHECK, installed, fs::copy_options::overwrite_existing);
    fs::permissions(installed, fs::perms::owner_all);
    EXPECT_EQ(run({{installed, "-q", start()},
                   workingFolder.path(),
                   {{"QUILLMARK_FOLDER", ""}, {"XDG_DATA_HOME", program.path()}}})
                  .status,
              1);
    EXPECT_FALSE(fs::exists(program.path() / "bin" / "Quillmark.ini"));
    EXPECT_TRUE(fs::exists(program.path() / "quillmark" / "Quillmark.ini"));
}

TEST_F(CheckCommand, TellsWhenItCouldNotReadTheSite) {
    site.write("index.html", "<a href=\"gone.html\">\n");
    const Finished result = check({"-q", start()});
    EXPECT_EQ(result.status, 0) << "nothing was found";
    EXPECT_THAT(result.err,
                HasSubstr("1 of 1 page was not read to the end: 21 of 21 bytes were left out."));
    site.write("index.html", "<a href=\"https://a.example/\">\r\n"
                             "<a href=\"HTTPS://b.example/\">\r\n</html>");
    EXPECT_THAT(check({"-q", start()}).err,
                AllOf(HasSubstr("quillmark-check: 2 references that begin with \"https:\""),
                      Not(HasSubstr("not read"))));
    EXPECT_THAT(check({"-q", "--set", "MAKE_ADDITION=HTTPS:", start()}).err, IsEmpty());
}

TEST_F(CheckCommand, SaysOnceWhyItDidNotReachItsEnd) {
    for (const Words& words : {Words{}, Words{"-q"}, Words{"--json", "-"},
                               Words{"-q", "--report", "r.txt"}, Words{"--output", "csv"}}) {
        Words all = {"--host", "127.0.0.1", "--port", "1", "--start", "/index.html"};
        all.insert(all.end(), words.begin(), words.end());
        const Finished result = check(all);
        EXPECT_EQ(result.status, 3);
        const bool summary = words.size() < 2;
        EXPECT_EQ(result.err.find("Unable to connect") == std::string::npos, summary) << result.err;
        EXPECT_EQ(result.out.find("Its last messages") != std::string::npos, summary) << result.out;
    }
}

TEST_F(CheckCommand, RefusesWhatCannotStart) {
    writeBrokenSite();
    const std::string page = start();
    const std::string folder = site.path().string();
    fs::create_symlink("index.html", folder + "/linked.html");
    site.write(".hidden.html", "");
    const std::vector<std::pair<Words, std::string>> cases = {
        {{}, "a start file, --profile NAME or --host NAME"},
        {{"nowhere.html"}, "there is no start file \"nowhere.html\""},
        {{program.path().string()}, "is a folder; name the start file in it, such as "},
        {{folder + "/linked.html"}, "is a symbolic link"},
        {{folder + "/.hidden.html"}, "is hidden"},
        {{"--set", "START_PATH=" + ToBackSlashes(folder + "/linked.html"), page}, ": " + page},
        {{"--profile", "x"}, "there is no profile \"x\""},
        {{"--profile", "x", page}, "--profile"},
        {{"--frob", page}, "--frob"},
        {{"--set", "FOO=1", page}, "there is no setting \"FOO\""},
        {{"--set", "MAX_LEVELS", page}, "--set takes KEY=VALUE"},
        {{"--set", "MAX_LEVELS=many", page}, "MAX_LEVELS takes a whole number"},
        {{"--set", "USER_PASSWORD=secret", page}, "password"},
        {{"--list", "Foo", page}, "there is no list \"Foo\""},
        {{"--json", "-", "--list", "FileList", page}, "standard output"},
        {{"--report", "none/r.txt", page}, "\"none/r.txt\" cannot be written"},
        {{"--folder", page, page}, "own folder"},
        {{"profile", "save", "", "--set", "MAX_LEVELS=1"}, "a profile needs a name"},
        {{"--set", "START_PATH=\\x\\index.html", page}, "there is no start file"},
        {{"--encryption", "ssl", page}, "ssl not in {none,tls,implicit,sftp}"},
        {{"--connections", "17", page}, "--connections"},
        {{"--encryption", "tls", "--trust", "yes", page}, "takes a SHA-256"},
        {{"--trust", Fingerprint, page}, "--trust needs --encryption tls, implicit or sftp"},
        {{"--encryption", "tls", "--key", "key", page}, "--key needs --encryption sftp"},
        {{"--host", "h", "--user", "me", "--start", "/i.html", "--encryption", "sftp", "--key",
          "none"},
         "none\" cannot be read"},
    };
    for (const auto& [words, error] : cases) {
        SCOPED_TRACE(error);
        const Finished result = check(words);
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.out, IsEmpty());
        EXPECT_THAT(result.err, AllOf(HasSubstr("quillmark-check: "), HasSubstr(error),
                                      Not(HasSubstr("secret"))));
    }
}

TEST_F(CheckCommand, RunsAProfileAndSettingsForOneRun) {
    writeBrokenSite();
    site.write("deep/pic.gif", "GIF");
    Settings settings;
    SetDefaultSettings(settings);
    settings.profile.START_PATH = ToBackSlashes(start());
    settings.profile.CHECK_DUPES = 1;
    ProgramFolder files(ToBackSlashes(program.path().string()));
    SaveProfile(settings, files, "My Site");
    const auto lists = json({"--profile", "My Site"})["lists"];
    EXPECT_EQ(lists["DuplicateList"].size(), 1U);
    const auto shallow = json(
        {"--profile", "My Site", "--set", "MAX_LEVELS=1", "--set", "CHECK_COMMAND=HREF"})["lists"];
    EXPECT_EQ(shallow["DuplicateList"].size(), 0U);
    EXPECT_EQ(shallow["ReferenceList"].size(), 1U);
    EXPECT_EQ(json({"--profile", "My Site"})["lists"], lists) << "--set is forgotten";
    EXPECT_THAT(check({"--profile", "none"}).err, HasSubstr("the profiles are: My Site"));
}

/// One profile is saved again and again: the port follows the encryption until somebody moves it.
TEST_F(CheckCommand, HostOptionsAreKeptInTheProfile) {
    const std::string key = workingFolder.write("key", "").string();
    const std::vector<std::pair<Words, std::string>> rows = {
        {{}, "HOST_PORT=21\n"},
        {{"--encryption", "sftp"}, "HOST_PORT=22\n"},
        {{"--encryption", "implicit"}, "HOST_PORT=990\n"},
        {{"--encryption", "tls"}, "HOST_PORT=21\n"},
        {{"--encryption", "sftp", "--port", "21"}, "HOST_PORT=21\n"},
        {{"--encryption", "implicit"}, "HOST_PORT=21\n"},
        {{"--port", "990"}, "HOST_PORT=990\n"},
        {{"--encryption", "none"}, "HOST_PORT=21\n"},
        {{"--encryption", "sftp", "--set", "HOST_PORT=2222"}, "HOST_PORT=2222\n"},
        {{"--set", "ENCRYPTION=tls"}, "HOST_PORT=2222\n"},
        {{"--encryption", "sftp", "--connections", "8", "--trust", Fingerprint, "--key", "key"},
         "ENCRYPTION=sftp\nCONNECTIONS=8\nTRUSTED=" + Fingerprint + "\nKEY_FILE=" + key + "\n"},
    };
    for (const auto& [words, shown] : rows) {
        Words save = {"profile", "save", "Host", "--host", "127.0.0.1"};
        save.insert(save.end(), words.begin(), words.end());
        EXPECT_EQ(check(save).status, 0);
        EXPECT_THAT(check({"profile", "show", "Host"}).out, HasSubstr(shown));
    }
}

TEST_F(CheckCommand, ResetsAnOldConfigurationWithANotice) {
    site.write("index.html", "");
    program.write("Quillmark.ini", "[old]\r\n");
    const Finished result = check({"-q", start()});
    EXPECT_EQ(result.status, 0) << "a clean site";
    EXPECT_THAT(result.out, HasSubstr("0 invalid references"));
    EXPECT_THAT(result.err, HasSubstr("older version of Quillmark"));
    EXPECT_THAT(result.err, HasSubstr("Settings will be reset"));
    EXPECT_THAT(program.read("Quillmark.ini"), HasSubstr("#CODE_MASKS=6\r\n"));
    EXPECT_THAT(check({"-q", start()}).err, IsEmpty());
}

TEST_F(CheckCommand, HostileNamesDoNotSteerTheTerminal) {
    site.write("index.html", "<a href=\"\x1B]0;owned\x07\xC2\x9D\xFF\xC3\xA4.gif\">\r\n");
    const Finished result = check({"-v", start()});
    EXPECT_THAT(result.out + result.err, Not(HasSubstr("\x1B")));
    EXPECT_THAT(result.out, HasSubstr("\\x1B]0;owned\\x07\\xC2\\x9D\\xFF\xC3\xA4.gif"));
    EXPECT_THAT(check({"\x1B[2J.html"}).err, HasSubstr("\"\\x1B[2J.html\""));
    EXPECT_THAT(check({start(), "\x1B[2J.html"}).err, HasSubstr("\\x1B[2J.html"));
}

TEST_F(CheckCommand, ARefusedRunIsNotTheFirst) {
    EXPECT_EQ(check({start()}).status, 2);
    EXPECT_EQ(check({"--host", "127.0.0.1", "--user", "me", "--start", "/i.html"}).status, 2);
    EXPECT_TRUE(fs::is_empty(program.path()));
    site.write("index.html", "<a href=\"INDEX.HTML\">\r\n");
    EXPECT_EQ(check({start()}).status, 0) << "capital letters are ignored";
    EXPECT_EQ(check({start()}).status, 1) << "and not any more";
}

TEST_F(CheckCommand, ASecondSignalEndsTheRunAtOnce) {
    Process& process = runUntilItReads();
    for (const int number : {SIGSTOP, SIGINT, SIGTERM, SIGCONT}) {
        process.signal(number); // Both are there when it goes on.
    }
    const Finished result = process.wait();
    EXPECT_TRUE(result.status == 128 + SIGINT || result.status == 128 + SIGTERM) << result.status;
    EXPECT_THAT(result.out, IsEmpty());
}

TEST_F(CheckCommand, EverySignalThatEndsProgramsStopsTheRun) {
    for (const int number : {SIGTERM, SIGHUP}) {
        Process& process = runUntilItReads();
        process.signal(number);
        const Finished result = process.wait();
        EXPECT_EQ(result.status, 3);
        EXPECT_THAT(result.out, AllOf(HasSubstr("The run was aborted"),
                                      HasSubstr("invalid references not looked for\n"),
                                      HasSubstr("unused files not looked for\n")));
    }
}

TEST_F(CheckCommand, InterruptStopsTheOnlyRunOfAFolderAndKeepsItsResults) {
    Process& process = runUntilItReads({"--json", "r.json"});
    const Finished second = check({start()});
    EXPECT_EQ(second.status, 2);
    EXPECT_THAT(second.err, HasSubstr("another check is running"));
    const std::string page = workingFolder.write("1.html", "").string();
    EXPECT_EQ(check({"--folder", "other", "-q", page}).status, 0);
    process.signal(SIGINT);
    const Finished result = process.wait();
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.err, HasSubstr("Stopping Quillmark...Please Wait\n"));
    EXPECT_THAT(result.err, HasSubstr("Quillmark Aborted\n"));
    const auto json = nlohmann::json::parse(workingFolder.read("r.json"));
    EXPECT_EQ(json["outcome"], "aborted");
    EXPECT_EQ(json["lists"]["FileList"].size(), 201U);
    EXPECT_LT(json["lists"]["GetFileList"].size(), 201U);
}

} // namespace
} // namespace quillmark::test
