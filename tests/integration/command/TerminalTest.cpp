#include "command/terminal/TerminalMessages.h"
#include "integration/command/CommandBench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

namespace quillmark::test {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

struct TerminalOutput : testing::Test, CommandBench {
    /// The command asks for the password of a user at a host that nobody can reach.
    Command askingCommand(const Words& more = {}) const {
        Words words = {"--host", "127.0.0.1",   "--port",  "1",
                       "--user", "m\xC2\x9Bme", "--start", "/i.html"};
        words.insert(words.end(), more.begin(), more.end());
        return command(words);
    }
};

TEST_F(TerminalOutput, APasswordIsNotShown) {
    workingFolder.write("key", "no key");
    const std::string login = "Password of m\\xC2\\x9Bme at 127.0.0.1";
    for (const auto& [more, question] : std::vector<std::pair<Words, std::string>>{
             {{}, login + ": "},
             {{"--encryption", "sftp"}, login + " (empty if your SSH agent has the key): "},
             {{"--encryption", "sftp", "--key", "key"}, "key (empty if it has none): "}}) {
        Terminal terminal(askingCommand(more), 200);
        ASSERT_TRUE(terminal.waitFor(question)) << terminal.shown();
        EXPECT_FALSE(terminal.echoes());
        EXPECT_TRUE(terminal.type("secret\n"));
        EXPECT_EQ(terminal.wait(), 3) << "nobody listens there";
        EXPECT_THAT(terminal.shown(),
                    AllOf(HasSubstr("Unable to connect"), Not(HasSubstr("secret"))));
        EXPECT_TRUE(terminal.echoes());
    }
}

TEST_F(TerminalOutput, APasswordThatIsNotGivenLeavesTheTerminalAsItWas) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
        Terminal terminal(askingCommand());
        ASSERT_TRUE(terminal.waitFor("127.0.0.1: "));
        kill(terminal.pid(), signal);
        EXPECT_EQ(terminal.wait(), 128 + signal);
        EXPECT_TRUE(terminal.echoes()) << signal;
    }
    for (const auto& [key, more] : std::vector<std::pair<const char*, Words>>{
             {"abc\x03", {}}, {"\x04", {}}, {"\x04", {"--encryption", "sftp"}}}) {
        Terminal terminal(askingCommand(more), 200);
        ASSERT_TRUE(terminal.waitFor(": "));
        EXPECT_TRUE(terminal.type(key));
        EXPECT_EQ(terminal.wait(), 2);
        EXPECT_TRUE(terminal.echoes());
    }
}

TEST_F(TerminalOutput, ShowsColoursWhereTheyAreWanted) {
    writeBrokenSite();
    struct Row {
        std::string noColor, terminal;
        bool coloured;
    };
    for (const Row& row : {Row{"", "xterm", true}, {"1", "xterm", false}, {"", "dumb", false}}) {
        Command coloured = command({"-q", start()});
        coloured.environment["NO_COLOR"] = row.noColor;
        coloured.environment["TERM"] = row.terminal;
        Terminal terminal(coloured);
        EXPECT_EQ(terminal.wait(), 1);
        EXPECT_EQ(terminal.shown().find('\x1B') != std::string::npos, row.coloured)
            << row.noColor << row.terminal;
    }
}

TEST_F(TerminalOutput, MessagesStayInOneLine) {
    site.write("index.html", "");
    Terminal terminal(command({start()}), 21);
    EXPECT_EQ(terminal.wait(), 0);
    EXPECT_THAT(terminal.shown(), HasSubstr("\r\x1B[KQuillmark running in\r\x1B[K"))
        << "the first message, without the column behind which the terminal begins a new line";
}

TEST_F(TerminalOutput, TheBarShowsHowFarAPassCame) {
    testing::internal::CaptureStderr();
    {
        TerminalMessages messages(MessageDetail::Newest);
        messages.InitializeThinking("Checking References");
        messages.UpdateThinking(1, 4);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "\r\x1B[K[######..................] Checking References...PleaseWait\r\x1B[K");
}

TEST_F(TerminalOutput, ListsDoNotSteerIt) {
    site.write("index.html", "");
    site.write("\x1B[2J\xC2\x9B"
               "m\xFF.txt",
               "");
    for (const Words& words : {Words{"--list", "UnusedList"}, {"--json", "-"}}) {
        Words all = words;
        all.insert(all.end(), {"-q", start()});
        Terminal terminal(command(all));
        EXPECT_EQ(terminal.wait(), 0);
        EXPECT_THAT(terminal.shown(), HasSubstr("m"));
        for (const char* raw : {"\x1B", "\xC2\x9B", "\xFF"}) {
            EXPECT_THAT(terminal.shown(), Not(HasSubstr(raw)));
        }
        const std::string piped = check(all).out;
        EXPECT_EQ(piped.find('\xFF') != std::string::npos, words.front() == "--list");
    }
}

} // namespace
} // namespace quillmark::test
