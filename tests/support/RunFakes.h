#pragma once

#include "base/Failure.h"
#include "base/PathParser.h"
#include "base/Paths.h"
#include "check/CheckRun.h"
#include "platform/disk/DiskAdapter.h"
#include "platform/disk/SiteDisk.h"
#include "run/HostTrust.h"
#include "run/ListLimit.h"
#include "run/Outside.h"
#include "settings/DefaultSettings.h"
#include "support/Lists.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <functional>

namespace quillmark::test {

/// A host's listing line of a file, with its size in the columns that the defaults name.
inline std::string fileLine(const std::string& size, const std::string& name) {
    return "-rw-r--r--   1 www      www     " + std::string(10 - size.size(), ' ') + size +
           " Jan  1 12:00 " + name;
}

class RecordingMessages : public Messages {
public:
    void MessageHandler(bool debug, std::string_view text) override {
        (debug ? debugs : normals).emplace_back(text);
        onPost(text);
    }
    bool wantsDebug() const override { return true; }

    bool has(std::string_view text) const {
        return std::find(normals.begin(), normals.end(), text) != normals.end();
    }

    Lines normals;
    Lines debugs;
    std::function<void(std::string_view)> onPost = [](std::string_view) {};
};

/// A web host that is a folder of this machine: "/" on the host is that folder. It can be told to
/// refuse and to fail, at points that a real server cannot be brought to.
class FolderHost : public FtpComponent {
public:
    void connect(const FtpLogin& /*login*/) override { connected_ = !refuses; }
    bool connected() const override { return connected_; }
    void disconnect() override { connected_ = false; }
    void list(std::string_view directory, const DirItem& item) override {
        loseConnectionAt(directory);
        const FolderListing listing = disk_.list(local(directory));
        for (const std::string& name : listing.folders) {
            item("drwxr-xr-x   2 me       me           4096 Jan  1 12:00 " + name);
        }
        for (const std::string& name : listing.files) {
            const auto size = std::filesystem::file_size(local(directory) + name);
            item(fileLine(std::to_string(size), name));
        }
    }
    void listWorkingDirectory(const DirItem& item) override { list("/", item); }
    bool listFacts(std::string_view /*directory*/, const DirItem& /*item*/) override {
        return false;
    }
    bool retrieve(std::string_view remoteFile, std::string_view localFile) override {
        loseConnectionAt(remoteFile);
        return disk_.CopyFileBinary(local(remoteFile), localFile, [] { return true; }) == 0;
    }
    void deleteFile(std::string_view remoteFile) override { loseConnectionAt(remoteFile); }
    void removeDirectory(std::string_view directory) override { loseConnectionAt(directory); }

    std::filesystem::path root;
    bool refuses = false;
    std::string lostAt; ///< The path at which the connection is lost for good.

private:
    std::string local(std::string_view path) const { return (root / path.substr(1)).string(); }
    void loseConnectionAt(std::string_view path) const {
        if (!lostAt.empty() && path == lostAt) {
            throw Failure(1099, "Connection lost");
        }
    }

    DiskAdapter disk_;
    bool connected_ = false;
};

/// Trusts nobody whom nobody vouches for, and keeps whom it was asked about.
class ScriptedTrust : public HostTrust {
public:
    bool trusts(const HostIdentity& identity) override {
        asked.push_back(identity);
        return answer;
    }

    bool answer = false;
    std::vector<HostIdentity> asked;
};

/// Answers every address with an empty page.
class SilentWeb : public UrlFetcher {
public:
    void expect(const std::vector<UrlRequest>& requests, const FetchManners& /*manners*/) override {
        for (const UrlRequest& request : requests) {
            expected.push_back(request.url);
        }
    }
    UrlAnswer OpenURL(const UrlRequest& /*request*/) override { return {}; }

    Lines expected;
};

class RecordingWindow : public RunListener {
public:
    void enterRunState() override { calls.emplace_back("enter"); }
    void leaveRunState() override { calls.emplace_back("leave"); }
    void showTraceWindow() override { calls.emplace_back("trace"); }
    void ShowResults() override { calls.emplace_back("results"); }
    void play(std::string_view name) override { calls.emplace_back(name); }
    void InitializeThinking(std::string_view title) override {
        titles.emplace_back(title);
        onTitle(title);
    }
    void UpdateThinking(int /*current*/, int /*total*/) override {}
    void RemoveThinking() override { titles.emplace_back("-"); }

    std::function<void(std::string_view title)> onTitle = [](std::string_view) {};
    Lines calls;
    Lines titles;
};

class HookedEvents : public EventLoop {
public:
    void DoEvents() override { hook(); }
    std::function<void()> hook = [] {};
};

/// A run over a temporary site, with everything around it.
struct RunBench {
    TempFolder site;
    TempFolder program;
    SiteResults siteResults;
    ResultLists lists;
    RunState state;
    Settings settings;
    RecordingMessages messages;
    DiskAdapter disk;
    SiteDisk siteDisk;
    FolderHost host;
    SilentWeb web;
    RecordingWindow window;
    HookedEvents events;
    Outside outside{messages, disk, host, web, window, events, siteDisk};
    RunContext context{lists, state, settings, outside,
                       ToBackSlashes((program.path() / "Quillmark.html").string())};
    ListLimit limit{messages, state};
    CheckRun run{lists,    siteResults, state,
                 settings, outside,     ToBackSlashes(program.path().string())};

    RunBench() {
        SetDefaultSettings(settings);
        host.root = site.path();
    }
    /// The "/" form path of a file of the site.
    std::string path(std::string_view name) const { return (site.path() / name).string(); }
    /// The lines of a list in a row, with the site's own folder taken off.
    std::string below(const ResultList& list) const {
        const std::string root = site.path().string();
        std::string row;
        for (const std::string& line : linesOf(list)) {
            row += (row.empty() ? "" : " ") + line.substr(line.starts_with(root) ? root.size() : 0);
        }
        return row;
    }
    RunOutcome runLocal(std::string_view startFile = "index.html") {
        settings.profile.START_PATH = ToBackSlashes(path(startFile));
        return run.start();
    }
    RunOutcome runRemote(const std::string& startPath = "/index.html") {
        settings.profile.START_PATH = startPath;
        return run.start();
    }
};

} // namespace quillmark::test
