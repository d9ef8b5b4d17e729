#pragma once

#include <curl/curl.h>

#include <memory>

// The only place that includes libcurl's header; nothing outside this folder includes this one.

struct EasyCleanup
{
    void operator()(CURL *easy) const { curl_easy_cleanup(easy); }
};
using EasyHandle = std::unique_ptr<CURL, EasyCleanup>;

struct MultiCleanup
{
    void operator()(CURLM *multi) const { curl_multi_cleanup(multi); }
};
using MultiHandle = std::unique_ptr<CURLM, MultiCleanup>;

struct ListCleanup
{
    void operator()(curl_slist *list) const { curl_slist_free_all(list); }
};
using HeaderList = std::unique_ptr<curl_slist, ListCleanup>;
