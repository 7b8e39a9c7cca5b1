// The calls of setlocale that a function makes: an interposed setlocale notes them and passes them on.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace kest::test
{

class LocaleRequests
{
public:
    LocaleRequests();
    ~LocaleRequests();
    LocaleRequests(const LocaleRequests&) = delete;
    LocaleRequests& operator=(const LocaleRequests&) = delete;

    // Category and name of each call since construction, in order.
    using Requests = std::vector<std::pair<int, std::string>>;
    const Requests& made() const { return requests_; }

    void note(int category, const char* name);

private:
    Requests requests_;
};

} // namespace kest::test
