// Reads profile (INI) text as it stands in a file. Everything is bytes; blank is what the locale's isspace says.
#include "kest/kernel/profiles.h"
#include "support/checked_entry_points.h"
#include "support/second_name.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <new>
#include <optional>
#include <string_view>
#include <unistd.h>

namespace
{

bool isBlank(char character)
{
    return std::isspace(static_cast<unsigned char>(character)) != 0;
}

std::string_view withoutLeadingBlanks(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
    {
        text.remove_prefix(1);
    }
    return text;
}

std::string_view withoutTrailingBlanks(std::string_view text)
{
    while (!text.empty() && isBlank(text.back()))
    {
        text.remove_suffix(1);
    }
    return text;
}

// ---- What the caller asks for

// A section's or key's name; an absent one asks for the names that there are. An empty one differs from that.
std::optional<std::string_view> requestedName(const char* name)
{
    if (name == nullptr)
    {
        return std::nullopt;
    }
    return withoutTrailingBlanks(withoutLeadingBlanks(name));
}

// Spaces at the end do not count, but the first character always does.
std::string_view defaultText(const char* text)
{
    std::string_view kept = text == nullptr ? "" : text;
    while (kept.size() > 1 && kept.back() == ' ')
    {
        kept.remove_suffix(1);
    }
    return kept;
}

// ---- The file

enum class FileState
{
    missing,
    empty,
    unreadable,
    read
};

class ProfileFile
{
public:
    explicit ProfileFile(const char* path)
    {
        // A file that cannot be written counts as missing.
        const int descriptor = path == nullptr ? -1 : open(path, O_RDWR | O_CLOEXEC);
        if (descriptor != -1)
        {
            state_ = read(descriptor);
            close(descriptor);
        }
    }

    FileState state() const { return state_; }

    // The file's content up to its first NUL.
    std::string_view text() const { return image_.get(); }

private:
    static constexpr off_t emptyAsWell = UINT32_MAX;

    FileState read(int descriptor)
    {
        lseek(descriptor, 0, SEEK_END);
        const off_t length = lseek(descriptor, 0, SEEK_CUR);
        lseek(descriptor, 0, SEEK_SET);
        if (length == 0 || length == emptyAsWell)
        {
            return FileState::empty;
        }
        // What has no position, such as a pipe, has no length.
        if (length == -1)
        {
            return FileState::unreadable;
        }
        const auto size = static_cast<std::size_t>(length);
        image_.reset(new (std::nothrow) char[size + 1]);
        if (image_ == nullptr)
        {
            return FileState::unreadable;
        }
        std::size_t filled = 0;
        while (filled < size)
        {
            const ssize_t count = ::read(descriptor, image_.get() + filled, size - filled);
            if (count == 0 || (count == -1 && errno != EINTR))
            {
                break;
            }
            filled += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
        }
        image_[filled] = '\0';
        return filled == 0 ? FileState::unreadable : FileState::read;
    }

    FileState state_ = FileState::missing;
    std::unique_ptr<char[]> image_;
};

// ---- Lines

// A longer name ends the process, like any checked copy that does not fit.
constexpr std::size_t longestName = 1024;

// As many characters as a vector register of any 64-bit processor holds.
using Vector [[gnu::vector_size(16)]] = unsigned char;

Vector load(const char* place)
{
    Vector vector;
    std::memcpy(&vector, place, sizeof vector);
    return vector;
}

Vector everywhere(char character)
{
    return Vector{} + static_cast<unsigned char>(character);
}

bool isAnySet(Vector vector)
{
    using Halves [[gnu::vector_size(sizeof(Vector))]] = std::uint64_t;
    const auto halves = Halves(vector);
    return (halves[0] | halves[1]) != 0;
}

// Where the word first stands at or behind `at`; the text's size if nowhere. Few places have the word's first and its
// last two characters where they belong; only these are compared in full.
std::size_t findWord(std::string_view text, std::string_view word, std::size_t at)
{
    if (word.empty())
    {
        return at;
    }
    constexpr std::size_t step = sizeof(Vector);
    constexpr std::size_t block = 4 * step;
    const std::size_t last = word.size() - 1;
    const std::size_t lastButOne = last == 0 ? 0 : last - 1;
    const Vector first = everywhere(word.front());
    const Vector beforeLast = everywhere(word[lastButOne]);
    const Vector end = everywhere(word[last]);
    const auto candidates = [=](const char* place)
    { return Vector((load(place) == first) & (load(place + lastButOne) == beforeLast) & (load(place + last) == end)); };
    for (; text.size() - at >= block + last; at += block)
    {
        const char* const place = text.data() + at;
        if (!isAnySet(candidates(place) | candidates(place + step) | candidates(place + 2 * step) |
                      candidates(place + 3 * step)))
        {
            continue;
        }
        for (std::size_t begin = at; begin < at + block; begin += step)
        {
            const Vector marks = candidates(text.data() + begin);
            for (std::size_t lane = 0; isAnySet(marks) && lane < step; ++lane)
            {
                if (marks[lane] != 0 && text.compare(begin + lane, word.size(), word) == 0)
                {
                    return begin + lane;
                }
            }
        }
    }
    return std::min(text.find(word, at), text.size());
}

// The place behind the last such character; 0 if there is none.
std::size_t placeBehindLast(std::string_view text, char character)
{
    const void* const last = memrchr(text.data(), character, text.size());
    return last == nullptr ? 0 : static_cast<std::size_t>(static_cast<const char*>(last) - text.data()) + 1;
}

// A line ends with LF; behind the last LF of the text, it ends with CR.
class Lines
{
public:
    explicit Lines(std::string_view text) : text_(text), lastLines_(placeBehindLast(text, '\n')) {}

    // The next line, without the blanks around it.
    bool next(std::string_view& line)
    {
        if (at_ == text_.size())
        {
            return false;
        }
        const std::size_t end = std::min(text_.find(terminatorAt(at_), at_), text_.size() - 1) + 1;
        line = withoutTrailingBlanks(withoutLeadingBlanks(text_.substr(at_, end - at_)));
        at_ = end;
        return true;
    }

    // Leaves out lines that neither hold the word nor are long enough for a name that ends the process.
    void skipTo(std::string_view word)
    {
        // Either place may lie far ahead: it is looked for anew only when it is passed.
        if (longLine_ <= at_)
        {
            longLine_ = findLongLine();
        }
        if (wordPlace_ <= at_ || word.data() != word_.data())
        {
            word_ = word;
            wordPlace_ = findWord(text_, word, at_);
        }
        const std::size_t place = std::min(wordPlace_, longLine_);
        if (place == text_.size())
        {
            at_ = place;
            return;
        }
        at_ = place < lastLines_ ? at_ : std::max(at_, lastLines_);
        at_ += placeBehindLast(text_.substr(at_, place - at_), terminatorAt(place));
    }

private:
    char terminatorAt(std::size_t place) const { return place < lastLines_ ? '\n' : '\r'; }

    // Steps from line end to line end, as far as a step of a name's length goes.
    std::size_t findLongLine() const
    {
        std::size_t at = at_;
        while (at < text_.size())
        {
            const std::size_t end = at < lastLines_ ? lastLines_ : text_.size();
            if (end - at <= longestName)
            {
                at = end;
                continue;
            }
            const std::size_t step = placeBehindLast(text_.substr(at, longestName), terminatorAt(at));
            if (step == 0)
            {
                return at;
            }
            at += step;
        }
        return at;
    }

    std::string_view text_;
    std::size_t lastLines_; // where those begin that end with CR
    std::size_t at_ = 0;
    std::size_t longLine_ = 0; // the next one, unless passed
    std::string_view word_;
    std::size_t wordPlace_ = 0; // where that stands next, unless passed
};

// ---- The answer

// Copies as much of a text as fits with its terminator; returns how much that is.
std::size_t copyCut(char* out, std::size_t size, std::string_view text)
{
    return text.copy(out, size - 1);
}

// Names with a tab behind each, in a zero-filled buffer.
class NameList
{
public:
    NameList(char* out, std::size_t size) : begin_(out), cursor_(out), room_(size - 1) {}

    void append(std::string_view name)
    {
        if (room_ > name.size() + 1)
        {
            cursor_ += name.copy(cursor_, name.size());
            *cursor_++ = '\t';
            room_ -= name.size() + 1;
        }
        else if (room_ > 0)
        {
            // The last name: without a tab, and cut if even its terminator does not fit.
            cursor_ += name.copy(cursor_, room_ - 1);
            room_ = 0;
        }
    }

    std::size_t length() const { return static_cast<std::size_t>(cursor_ - begin_); }

private:
    char* begin_;
    char* cursor_;
    std::size_t room_;
};

void removeQuotes(char* out, std::size_t length)
{
    const std::string_view text(out, length);
    const std::size_t begin = std::min(text.find_first_not_of('"'), length);
    const std::size_t end = std::max(text.find_last_not_of('"') + 1, begin); // npos + 1 is 0
    std::memmove(out, out + begin, end - begin);
    std::memset(out + (end - begin), 0, length - (end - begin));
}

// ---- The search

class Search
{
public:
    // The names found go to `names` when names are asked for.
    Search(std::optional<std::string_view> section, std::optional<std::string_view> key, NameList& names)
        : section_(section), key_(key), names_(names)
    {
    }

    void run(std::string_view text)
    {
        Lines lines(text);
        std::string_view line;
        do
        {
            if (const std::optional<std::string_view> word = wordSoughtAfter())
            {
                lines.skipTo(*word);
            }
            if (!lines.next(line))
            {
                return;
            }
            read(line);
        } while (!value_);
    }

    bool namesAskedFor() const { return !section_ || (inSection_ && !key_); }
    std::optional<std::string_view> value() const { return value_; }

private:
    // What a line must hold to make a difference, but for names that end the process.
    std::optional<std::string_view> wordSoughtAfter() const { return inSection_ ? key_ : section_; }

    static void endProcessIfTooLong(std::string_view name)
    {
        if (name.size() > longestName)
        {
            __chk_fail();
        }
    }

    void read(std::string_view line)
    {
        if (line.empty())
        {
            return;
        }
        const std::size_t bracket = line.front() == '[' ? line.find(']') : std::string_view::npos;
        if (bracket != std::string_view::npos)
        {
            readHeader(line.substr(1, bracket - 1));
        }
        else if (inSection_)
        {
            readKey(line);
        }
    }

    // The section is never left again: a key that it lacks is looked for in those behind it.
    void readHeader(std::string_view name)
    {
        keysClosed_ = inSection_;
        endProcessIfTooLong(name);
        if (!section_)
        {
            names_.append(name);
        }
        else if (name == *section_)
        {
            inSection_ = true;
        }
    }

    void readKey(std::string_view line)
    {
        const std::size_t sign = line.find('=');
        if (sign == std::string_view::npos)
        {
            return;
        }
        const std::string_view name = withoutTrailingBlanks(line.substr(0, sign));
        if (name.empty())
        {
            return;
        }
        endProcessIfTooLong(name);
        if (key_ && name == *key_)
        {
            value_ = withoutLeadingBlanks(line.substr(sign + 1));
        }
        else if (!key_ && !keysClosed_)
        {
            names_.append(name);
        }
    }

    std::optional<std::string_view> section_;
    std::optional<std::string_view> key_;
    NameList& names_;
    std::optional<std::string_view> value_;
    bool inSection_ = false;
    bool keysClosed_ = false;
};

// `out` is zero-filled.
std::size_t readProfileString(const char* section, const char* key, const char* defaultValue, char* out,
                              std::size_t size, const char* path)
{
    const std::string_view fallback = defaultText(defaultValue);
    const ProfileFile file(path);
    switch (file.state())
    {
    case FileState::missing:
        return section == nullptr ? 0 : copyCut(out, size, fallback);
    case FileState::empty:
        return copyCut(out, size, fallback);
    case FileState::unreadable:
        return 0;
    case FileState::read:
        break;
    }
    NameList names(out, size);
    Search search(requestedName(section), requestedName(key), names);
    search.run(file.text());
    const std::size_t length =
        search.namesAskedFor() ? names.length() : copyCut(out, size, search.value().value_or(fallback));
    removeQuotes(out, length);
    return length;
}

} // namespace

int read_profile_string(char* section, char* key, char* defaultValue, char* out, int size, char* path)
{
    if (size == 1)
    {
        *out = '\0';
        return 0;
    }
    if (size <= 0 || out == nullptr)
    {
        return 0;
    }
    const auto room = static_cast<std::size_t>(size);
    std::memset(out, 0, room);
    return static_cast<int>(readProfileString(section, key, defaultValue, out, room, path));
}

KEST_SECOND_NAME(int plainReadProfileString(char*, char*, char*, char*, int, char*),
                 "_Z19read_profile_stringPcS_S_S_iS_", "read_profile_string");
