#include "audit/reports.h"

#include <string_view>

namespace kest::audit
{

namespace
{

// The length of the UTF-8 sequence at the beginning of a text; 0 when there is none.
std::size_t sequenceLength(std::string_view text)
{
    const auto byte = [text](std::size_t index)
    { return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U; };
    const unsigned first = byte(0);
    if (first < 0x80)
    {
        return 1;
    }
    if (first < 0xC2 || first > 0xF4)
    {
        return 0;
    }
    const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    // Second bytes that would spell a shorter sequence's character, a surrogate, or one beyond Unicode.
    const unsigned least = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    const unsigned most = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    if (byte(1) < least || byte(1) > most)
    {
        return 0;
    }
    for (std::size_t index = 2; index < length; ++index)
    {
        if ((byte(index) & 0xC0U) != 0x80)
        {
            return 0;
        }
    }
    return length;
}

// A text between quotes. Names come from files that anybody may have made: bytes that are no UTF-8 are replaced.
std::string quoted(std::string_view text)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result = "\"";
    while (!text.empty())
    {
        const std::size_t length = sequenceLength(text);
        const char first = text.front();
        const auto code = static_cast<unsigned char>(first);
        if (length == 0)
        {
            result += "\xEF\xBF\xBD";
        }
        else if (first == '"' || first == '\\')
        {
            result += {'\\', first};
        }
        else if (code < ' ')
        {
            result += {'\\', 'u', '0', '0', digits[code / 16], digits[code % 16]};
        }
        else
        {
            result += text.substr(0, length);
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return result + "\"";
}

// Values, one a line, indented by what they stand in.
class Writer
{
public:
    template <typename Body>
    void object(const Body& body)
    {
        nested('{', '}', body);
    }
    template <typename Body>
    void array(const Body& body)
    {
        nested('[', ']', body);
    }

    void key(std::string_view name)
    {
        next();
        text_ += quoted(name) + ": ";
        after_key_ = true;
    }

    void value(std::string_view text)
    {
        next();
        text_ += quoted(text);
    }

    void value(std::size_t number)
    {
        next();
        text_ += std::to_string(number);
    }

    template <typename Value>
    void member(std::string_view name, const Value& content)
    {
        key(name);
        value(content);
    }

    template <typename Texts>
    void list(std::string_view name, const Texts& texts)
    {
        key(name);
        array(
            [&]
            {
                for (const std::string& text : texts)
                {
                    value(text);
                }
            });
    }

    template <typename Things, typename Describe>
    void objects(std::string_view name, const Things& things, const Describe& describe)
    {
        key(name);
        array(
            [&]
            {
                for (const auto& thing : things)
                {
                    object([&] { describe(thing); });
                }
            });
    }

    std::string finish() { return std::move(text_) + "\n"; }

private:
    // A value stands behind its key, or on a line of its own.
    void next()
    {
        if (!after_key_ && depth_ != 0)
        {
            text_ += first_ ? "\n" : ",\n";
            text_.append(2 * depth_, ' ');
        }
        after_key_ = false;
        first_ = false;
    }

    template <typename Body>
    void nested(char begin, char end, const Body& body)
    {
        next();
        text_ += begin;
        ++depth_;
        first_ = true;
        body();
        --depth_;
        if (!first_)
        {
            text_ += "\n";
            text_.append(2 * depth_, ' ');
        }
        first_ = false;
        text_ += end;
    }

    std::string text_;
    std::size_t depth_ = 0;
    bool first_ = true;
    bool after_key_ = false;
};

void describeRow(Writer& writer, const tools::Export& row)
{
    writer.member("library", row.library);
    writer.member("header", row.header);
    writer.member("kind", tools::kindName(row.kind));
    if (!row.answer.empty())
    {
        writer.member("result", row.answer);
    }
    if (row.operations.empty())
    {
        return;
    }
    writer.objects("operations", row.operations,
                   [&writer](const tools::Operation& operation)
                   {
                       writer.member("operation", operation.name);
                       writer.member("position", operation.position);
                       if (!operation.answer.empty())
                       {
                           writer.member("withoutService", operation.answer);
                       }
                   });
}

void describe(Writer& writer, const Function& function)
{
    writer.member("name", function.name);
    writer.member("symbol", function.symbol);
    writer.member("answer", std::string_view(answerName(function.answer)));
    if (!function.hint.empty())
    {
        writer.member("hint", function.hint);
    }
    if (function.row != nullptr)
    {
        describeRow(writer, *function.row);
    }
    writer.list("modules", function.modules);
    writer.list("neededBy", function.needed_by);
}

} // namespace

std::string jsonReport(const Audit& audit)
{
    Writer writer;
    writer.object(
        [&]
        {
            writer.objects("files", audit.files,
                           [&](const FileContents& file)
                           {
                               writer.member("path", file.path);
                               writer.member("format", file.format);
                               writer.list("problems", file.problems);
                           });
            writer.key("totals");
            writer.object(
                [&]
                {
                    for (const Answer answer : answers)
                    {
                        writer.member(answerName(answer), audit.count(answer));
                    }
                });
            writer.objects("functions", audit.functions, [&](const Function& function) { describe(writer, function); });
            writer.objects("operations", audit.operations,
                           [&](const HostOperation& operation)
                           {
                               writer.member("service", operation.service);
                               writer.member("operation", operation.name);
                               writer.member("position", operation.position);
                               writer.list("neededFor", operation.functions);
                           });
            writer.objects("missingLibraries", audit.missing_libraries,
                           [&](const auto& missing)
                           {
                               writer.member("library", missing.first);
                               writer.member("neededBy", missing.second);
                           });
        });
    return writer.finish();
}

} // namespace kest::audit
