#include "code_page.h"

#include "kest/kernel/locale.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <langinfo.h>
#include <new>
#include <strings.h>
#include <utility>

namespace kest::companions
{

namespace
{

constexpr std::pair<UINT, const char*> named_pages[] = {
    {10000, "MACINTOSH"},   {20127, "US-ASCII"},    {20866, "KOI8-R"},      {20932, "EUC-JP"},
    {21866, "KOI8-U"},      {28591, "ISO-8859-1"},  {28592, "ISO-8859-2"},  {28593, "ISO-8859-3"},
    {28594, "ISO-8859-4"},  {28595, "ISO-8859-5"},  {28596, "ISO-8859-6"},  {28597, "ISO-8859-7"},
    {28598, "ISO-8859-8"},  {28599, "ISO-8859-9"},  {28603, "ISO-8859-13"}, {28605, "ISO-8859-15"},
    {50220, "ISO-2022-JP"}, {50221, "ISO-2022-JP"}, {50222, "ISO-2022-JP"}, {50225, "ISO-2022-KR"},
    {51932, "EUC-JP"},      {51936, "GB2312"},      {51949, "EUC-KR"},      {54936, "GB18030"},
    {CP_UTF7, "UTF-7"},     {CP_UTF8, "UTF-8"},
};

} // namespace

std::string encodingOf(UINT codePage)
{
    if (codePage == CP_ACP || codePage == CP_OEMCP || codePage == CP_THREAD_ACP)
        return nl_langinfo(CODESET);
    for (const auto& [page, name] : named_pages)
    {
        if (page == codePage)
            return name;
    }
    return "CP" + std::to_string(codePage);
}

bool isUtf8(std::string_view encoding)
{
    return encoding == "UTF-8";
}

Conversion::Conversion(const std::string& to, const std::string& from) : handle_(iconv_open(to.c_str(), from.c_str()))
{
    if (!known() && errno == ENOMEM)
        throw std::bad_alloc();
}

Conversion::~Conversion()
{
    if (known())
        iconv_close(handle_);
}

bool Conversion::known() const
{
    // iconv_open's answer for what it does not know.
    return reinterpret_cast<std::intptr_t>(handle_) != -1;
}

int Conversion::convert(std::string_view& input, std::string& output)
{
    std::array<char, 4096> buffer;
    int error = 0;
    while ((error == 0 || error == E2BIG) && !input.empty())
    {
        char* from = const_cast<char*>(input.data()); // iconv does not write through it
        std::size_t left = input.size();
        char* to = buffer.data();
        std::size_t room = buffer.size();
        error = iconv(handle_, &from, &left, &to, &room) == static_cast<std::size_t>(-1) ? errno : 0;
        output.append(buffer.data(), buffer.size() - room);
        input.remove_prefix(input.size() - left);
    }
    return error;
}

void Conversion::finish(std::string& output)
{
    std::array<char, 64> buffer;
    char* to = buffer.data();
    std::size_t room = buffer.size();
    iconv(handle_, nullptr, nullptr, &to, &room);
    output.append(buffer.data(), buffer.size() - room);
}

} // namespace kest::companions
