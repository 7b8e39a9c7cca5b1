// The profile reader once more, written down plainly: every buffer and every step as the contract of
// read_profile_string has them, without regard to speed.
#pragma once

#include <algorithm>
#include <cctype>
#include <optional>
#include <string>
#include <vector>

namespace kest::test
{

// What a call answers and leaves in its buffer of `size` bytes, unless it ends the process.
struct ProfileAnswer
{
    int count;
    std::string buffer;
    bool endsProcess = false;

    bool operator==(const ProfileAnswer&) const = default;
};

inline const ProfileAnswer processEnd = {0, "", true};

class ProfileModel
{
public:
    // An absent content is a file that cannot be opened.
    ProfileModel(std::optional<std::string> content, std::size_t size) : content_(std::move(content)), size_(size) {}

    ProfileAnswer ask(const std::optional<std::string>& section, const std::optional<std::string>& key,
                      const std::optional<std::string>& defaultValue)
    {
        default_ = defaultValue.value_or("");
        while (default_.size() >= 2 && default_.back() == ' ')
        {
            default_.pop_back();
        }
        if (!content_)
        {
            return answer(section ? cut(default_) : "", false);
        }
        if (content_->empty())
        {
            return answer(cut(default_), false);
        }
        scan(section, key);
        if (endsProcess_)
        {
            return processEnd;
        }
        if (value_)
        {
            return answer(cut(*value_), true);
        }
        if (!section)
        {
            return answer(sections_.text, true);
        }
        return answer(inSection_ && !key ? keys_.text : cut(default_), true);
    }

private:
    struct List
    {
        std::string text;
        std::size_t room;
        bool full = false;

        void append(const std::string& name)
        {
            if (room > name.size() + 1)
            {
                text += name + '\t';
                room -= name.size() + 1;
                return;
            }
            std::string bytes = (name + '\0').substr(0, room);
            if (!bytes.empty())
            {
                bytes.pop_back();
            }
            text += bytes;
            full = true;
        }
    };

    static constexpr std::size_t longestName = 1024;

    static bool blank(char character) { return std::isspace(static_cast<unsigned char>(character)) != 0; }

    static std::string trimmed(std::string text)
    {
        while (!text.empty() && blank(text.back()))
        {
            text.pop_back();
        }
        while (!text.empty() && blank(text.front()))
        {
            text.erase(0, 1);
        }
        return text;
    }

    // Equal in the first bytes, of which even an empty name has one, its terminator.
    static bool matches(const std::string& name, const std::string& requested)
    {
        const std::string wanted = trimmed(requested);
        const std::size_t compared = std::max<std::size_t>(wanted.size(), 1);
        return (name + std::string(compared, '\0')).substr(0, compared) ==
                   (wanted + std::string(compared, '\0')).substr(0, compared) &&
               name.size() <= compared;
    }

    static std::vector<std::string> lines(std::string text)
    {
        std::vector<std::string> found;
        while (!text.empty())
        {
            std::size_t end = text.find('\n');
            if (end == std::string::npos)
            {
                end = text.find('\r');
            }
            end = end == std::string::npos ? text.size() : end + 1;
            found.push_back(trimmed(text.substr(0, end)));
            text.erase(0, end);
        }
        return found;
    }

    void scan(const std::optional<std::string>& section, const std::optional<std::string>& key)
    {
        bool keysClosed = false;
        for (const std::string& line : lines(content_->substr(0, content_->find('\0'))))
        {
            const std::size_t bracket = line.find(']');
            const std::size_t sign = line.find('=');
            if (!line.empty() && line[0] == '[' && bracket != std::string::npos)
            {
                if (inSection_)
                {
                    keysClosed = true;
                }
                const std::string name = line.substr(1, bracket - 1);
                if (name.size() > longestName)
                {
                    endsProcess_ = true;
                    return;
                }
                if (!sections_.full)
                {
                    sections_.append(name);
                }
                if (section && matches(name, *section))
                {
                    inSection_ = true;
                }
            }
            else if (sign != std::string::npos && inSection_)
            {
                const std::string name = trimmed(line.substr(0, sign));
                if (name.empty())
                {
                    continue;
                }
                if (name.size() > longestName)
                {
                    endsProcess_ = true;
                    return;
                }
                if (!keysClosed && !keys_.full)
                {
                    keys_.append(name);
                    keysClosed = keys_.full;
                }
                if (key && matches(name, *key))
                {
                    value_ = trimmed(line.substr(sign + 1));
                    return;
                }
            }
        }
    }

    std::string cut(const std::string& text) const { return text.substr(0, size_ - 1); }

    ProfileAnswer answer(std::string text, bool stripQuotes) const
    {
        const int count = static_cast<int>(text.size());
        if (stripQuotes)
        {
            while (!text.empty() && text.front() == '"')
            {
                text.erase(0, 1);
            }
            while (!text.empty() && text.back() == '"')
            {
                text.pop_back();
            }
        }
        text.resize(size_, '\0');
        return {count, text};
    }

    std::optional<std::string> content_;
    std::size_t size_;
    std::string default_;
    List sections_ = {"", size_ - 1};
    List keys_ = {"", size_ - 1};
    bool inSection_ = false;
    bool endsProcess_ = false;
    std::optional<std::string> value_;
};

} // namespace kest::test
