#include "platform/http/Inet.h"

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include <sys/resource.h>

namespace {

class NoEvents : public quillmark::EventLoop {
public:
    void DoEvents() override {}
};

int opened(quillmark::Inet& inet, const std::vector<quillmark::UrlRequest>& requests) {
    int count = 0;
    for (const quillmark::UrlRequest& request : requests) {
        const quillmark::UrlAnswer answer = inet.OpenURL(request);
        if (answer.failure == quillmark::UrlFailure::None) {
            ++count;
        } else {
            std::cerr << request.url << ": no answer\n";
        }
    }
    return count;
}

} // namespace

// urls_driver LIMIT_OF_ONE_HOST LIMIT_IN_ALL [head] <ADDRESSES: fetches them, by HEAD if it is told
// to, and prints how many answered, the seconds it took and the peak of the memory in KiB.
int main(int argc, char** argv) {
    quillmark::FetchLimits limits;
    limits.toOneHost = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 8;
    limits.inAll = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : limits.inAll;
    std::vector<quillmark::UrlRequest> requests;
    for (std::string url; std::getline(std::cin, url);) {
        requests.push_back({url});
    }
    NoEvents events;
    const quillmark::RunState state;
    quillmark::Inet inet(events, state, limits);
    const auto start = std::chrono::steady_clock::now();
    quillmark::FetchManners manners;
    manners.headFirst = argc > 3;
    inet.expect(requests, manners);
    const int answered = opened(inet, requests);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::cout << answered << " " << taken.count() << " " << usage.ru_maxrss << "\n";
}
