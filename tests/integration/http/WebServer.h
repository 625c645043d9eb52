#pragma once

#include "platform/http/Inet.h"
#include "support/Process.h"
#include "support/RunFakes.h"

#include <chrono>
#include <optional>
#include <sstream>
#include <string>
#include <thread>

#include <gtest/gtest.h>

namespace quillmark::test {

/// The web server of the tests, with a certificate that nobody has signed.
class WebServer {
public:
    WebServer() {
        run({{"openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256",
              "-nodes", "-subj", "/CN=localhost", "-keyout", key_, "-out", certificate_}});
        process_.emplace(Command{{"python3", WEB_SERVER, "0", "0", certificate_, key_}});
        std::istringstream ports(firstLine());
        ports >> port_ >> tlsPort_;
        EXPECT_GT(tlsPort_, 0) << process_->errSoFar();
    }
    std::string url(const std::string& path, const std::string& host = "127.0.0.1") const {
        return "http://" + host + ":" + std::to_string(port_) + path;
    }
    std::string tlsUrl() const { return "https://localhost:" + std::to_string(tlsPort_) + "/page"; }

private:
    /// Of what the server prints, once it listens; empty if it ended before.
    std::string firstLine() {
        using namespace std::chrono_literals;
        const auto end = std::chrono::steady_clock::now() + 2min;
        std::string printed;
        while (printed.find('\n') == std::string::npos && process_->running() &&
               std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(10ms);
            printed = process_->outSoFar();
        }
        return printed;
    }

    TempFolder folder_;
    std::string key_ = (folder_.path() / "key.pem").string();
    std::string certificate_ = (folder_.path() / "certificate.pem").string();
    int port_ = 0;
    int tlsPort_ = 0;
    std::optional<Process> process_;
};

/// A run with the real fetcher, and the server that it meets.
struct HttpBench : RunBench {
    explicit HttpBench(const FetchLimits& limits) : inet(events, state, limits) {}

    /// What the server says of the path, or of the most requests at once.
    int reported(const std::string& what) const {
        const auto report =
            test::run({{"curl", "--silent", "--noproxy", "*", server.url("/report")}});
        std::istringstream lines(report.out);
        for (std::string line; std::getline(lines, line);) {
            if (line.substr(line.find(' ') + 1) == what) {
                return std::stoi(line);
            }
        }
        return 0;
    }

    WebServer server;
    Inet inet;
    Outside online{messages, disk, host, inet, window, events, siteDisk};
};

} // namespace quillmark::test
