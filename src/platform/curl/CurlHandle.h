#pragma once

#include <memory>

#include <curl/curl.h>

namespace quillmark {

// One deleter for each kind: CURL and CURLM are both void to the compiler.
struct CurlEasyDelete {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct CurlMultiDelete {
    void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
};
struct CurlUrlDelete {
    void operator()(CURLU* handle) const { curl_url_cleanup(handle); }
};
struct CurlTextDelete {
    void operator()(char* text) const { curl_free(text); }
};
struct CurlListDelete {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

/// The handles of libcurl, each owned by one object.
using CurlEasy = std::unique_ptr<CURL, CurlEasyDelete>;
using CurlMulti = std::unique_ptr<CURLM, CurlMultiDelete>;
using CurlUrl = std::unique_ptr<CURLU, CurlUrlDelete>;
using CurlText = std::unique_ptr<char, CurlTextDelete>;
using CurlList = std::unique_ptr<curl_slist, CurlListDelete>;

/// Makes TLS trust the system's authorities from one file, where there is one. libcurl keeps such a
/// file in memory for all transfers of a multi handle. With a folder of authorities besides, it
/// would read the file again for each connection, which takes longer than most answers.
inline void useAuthoritiesInOneFile(CURL* easy) {
    const char* file = nullptr;
    curl_easy_getinfo(easy, CURLINFO_CAINFO, &file);
    if (file != nullptr) {
        curl_easy_setopt(easy, CURLOPT_CAPATH, nullptr);
    }
}

} // namespace quillmark
