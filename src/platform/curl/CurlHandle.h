#pragma once

#include <memory>

#include <curl/curl.h>

namespace quillmark {

struct CurlDelete {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
    void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

using CurlEasy = std::unique_ptr<CURL, CurlDelete>;
using CurlMulti = std::unique_ptr<CURLM, CurlDelete>;
using CurlList = std::unique_ptr<curl_slist, CurlDelete>;

/// Keeps libcurl ready for as long as any object of it lives (curl_global_init counts its calls).
class CurlLibrary {
public:
    CurlLibrary() { curl_global_init(CURL_GLOBAL_DEFAULT); }
    ~CurlLibrary() { curl_global_cleanup(); }
    CurlLibrary(const CurlLibrary&) = delete;
    CurlLibrary& operator=(const CurlLibrary&) = delete;
};

} // namespace quillmark
