#include "profile_file.h"

#include "text.h"
#include "unicode.h"

#include <algorithm>

namespace kest::host
{

namespace
{

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view utf16Mark = "\xFF\xFE";

std::wstring_view withoutQuotes(std::wstring_view text)
{
    if (text.size() >= 2 && (text.front() == L'"' || text.front() == L'\'') && text.back() == text.front())
    {
        text = text.substr(1, text.size() - 2);
    }
    return text;
}

bool sameName(std::wstring_view a, std::wstring_view b)
{
    return a.size() == b.size() && folded(a) == folded(b);
}

// The bytes of one line end, in the file's encoding.
std::size_t lineLength(std::string_view rest, bool wide)
{
    if (!wide)
    {
        const std::size_t end = rest.find('\n');
        return end == std::string_view::npos ? rest.size() : end + 1;
    }
    for (std::size_t index = 0; index + 1 < rest.size(); index += 2)
    {
        if (rest[index] == '\n' && rest[index + 1] == '\0')
        {
            return index + 2;
        }
    }
    return rest.size();
}

} // namespace

ProfileFile::ProfileFile(std::string_view content)
{
    if (content.starts_with(utf16Mark))
    {
        encoding_ = Encoding::utf16;
        content.remove_prefix(utf16Mark.size());
    }
    else if (content.starts_with(utf8Mark))
    {
        encoding_ = Encoding::utf8WithMark;
        content.remove_prefix(utf8Mark.size());
    }
    while (!content.empty())
    {
        const std::size_t length = lineLength(content, encoding_ == Encoding::utf16);
        lines_.push_back(parsed(content.substr(0, length)));
        content.remove_prefix(length);
    }
    if (!lines_.empty() && lines_.front().bytes.ends_with(encoded(L"\n")) &&
        !lines_.front().bytes.ends_with(encoded(L"\r\n")))
    {
        lineEnd_ = L"\n";
    }
}

std::string ProfileFile::content() const
{
    std::string result(encoding_ == Encoding::utf16 ? utf16Mark : encoding_ == Encoding::utf8WithMark ? utf8Mark : "");
    for (const Line& line : lines_)
    {
        result += line.bytes;
    }
    return result;
}

ProfileFile::Line ProfileFile::parsed(std::string_view bytes) const
{
    Line line;
    line.bytes = bytes;
    const std::wstring decoded = encoding_ == Encoding::utf16 ? fromUtf16Le(bytes) : fromUtf8(bytes);
    const std::wstring_view text = trimmed(decoded);
    line.text = text;
    if (text.starts_with(L';'))
    {
        line.kind = Line::Kind::comment;
    }
    else if (const std::size_t bracket = text.find(L']'); text.starts_with(L'[') && bracket != text.npos)
    {
        line.kind = Line::Kind::section;
        line.name = trimmed(text.substr(1, bracket - 1));
    }
    else if (const std::size_t equals = text.find(L'='); equals != text.npos)
    {
        line.kind = Line::Kind::key;
        line.name = trimmed(text.substr(0, equals));
        line.text = trimmed(text.substr(equals + 1));
    }
    return line;
}

std::string ProfileFile::encoded(std::wstring_view text) const
{
    return encoding_ == Encoding::utf16 ? toUtf16Le(text) : toUtf8(text);
}

ProfileFile::Line ProfileFile::made(std::wstring_view text) const
{
    return parsed(encoded(std::wstring(text) + lineEnd_));
}

std::size_t ProfileFile::header(std::wstring_view section) const
{
    const std::wstring_view wanted = trimmed(section);
    const auto found = std::find_if(lines_.begin(), lines_.end(),
                                    [wanted](const Line& line)
                                    { return line.kind == Line::Kind::section && sameName(line.name, wanted); });
    return static_cast<std::size_t>(found - lines_.begin());
}

std::size_t ProfileFile::end(std::size_t header) const
{
    std::size_t index = std::min(header + 1, lines_.size());
    while (index < lines_.size() && lines_[index].kind != Line::Kind::section)
    {
        ++index;
    }
    return index;
}

std::size_t ProfileFile::findKey(std::wstring_view section, std::wstring_view key) const
{
    const std::wstring_view wanted = trimmed(key);
    const std::size_t begin = header(section);
    const std::size_t behind = end(begin);
    for (std::size_t index = begin; index < behind; ++index)
    {
        if (lines_[index].kind == Line::Kind::key && sameName(lines_[index].name, wanted))
        {
            return index;
        }
    }
    return lines_.size();
}

std::vector<std::wstring> ProfileFile::sections() const
{
    std::vector<std::wstring> names;
    for (const Line& line : lines_)
    {
        if (line.kind == Line::Kind::section)
        {
            names.push_back(line.name);
        }
    }
    return names;
}

std::vector<std::wstring> ProfileFile::keys(std::wstring_view section) const
{
    std::vector<std::wstring> names;
    const std::size_t begin = header(section);
    const std::size_t behind = end(begin);
    for (std::size_t index = begin; index < behind; ++index)
    {
        if (lines_[index].kind == Line::Kind::key)
        {
            names.push_back(lines_[index].name);
        }
    }
    return names;
}

std::vector<std::wstring> ProfileFile::lines(std::wstring_view section) const
{
    std::vector<std::wstring> texts;
    const std::size_t begin = header(section);
    const std::size_t behind = end(begin);
    for (std::size_t index = begin + 1; index < behind; ++index)
    {
        const Line& line = lines_[index];
        if (line.kind == Line::Kind::key)
        {
            texts.push_back(line.name + L'=' + line.text);
        }
        else if (line.kind == Line::Kind::other && !line.text.empty())
        {
            texts.push_back(line.text);
        }
    }
    return texts;
}

std::optional<std::wstring> ProfileFile::value(std::wstring_view section, std::wstring_view key) const
{
    const std::size_t index = findKey(section, key);
    return index == lines_.size() ? std::nullopt : std::optional<std::wstring>(withoutQuotes(lines_[index].text));
}

void ProfileFile::terminateLastLine()
{
    if (!lines_.empty() && !lines_.back().bytes.ends_with(encoded(L"\n")))
    {
        lines_.back().bytes += encoded(lineEnd_);
    }
}

void ProfileFile::set(std::wstring_view section, std::wstring_view key, std::wstring_view value)
{
    const std::size_t present = findKey(section, key);
    if (present != lines_.size())
    {
        lines_[present] = made(lines_[present].name + L'=' + std::wstring(value));
        return;
    }
    terminateLastLine();
    std::size_t place = header(section);
    if (place == lines_.size())
    {
        lines_.push_back(made(L'[' + std::wstring(trimmed(section)) + L']'));
    }
    // Blank lines at a section's end separate it from the next.
    const std::size_t begin = place;
    place = end(begin);
    while (place > begin + 1 && lines_[place - 1].kind == Line::Kind::other && lines_[place - 1].text.empty())
    {
        --place;
    }
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place),
                  made(std::wstring(trimmed(key)) + L'=' + std::wstring(value)));
}

void ProfileFile::remove(std::wstring_view section, std::wstring_view key)
{
    const std::size_t index = findKey(section, key);
    if (index != lines_.size())
    {
        lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(index));
    }
}

void ProfileFile::removeSection(std::wstring_view section)
{
    const std::size_t begin = header(section);
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(begin),
                 lines_.begin() + static_cast<std::ptrdiff_t>(end(begin)));
}

} // namespace kest::host
