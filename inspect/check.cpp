#include "inspect/check.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <map>
#include <set>
#include <tuple>

#include "inspect/describe.h"
#include "inspect/json.h"
#include "inspect/markup.h"
#include "inspect/secrets.h"

namespace inspect {

namespace {

constexpr std::string_view kHeader = "../MESSAGE_HEADER";

// What there may be of an element, by its path from the body on.
struct Expected
{
    std::size_t most = 0;                                            // side by side
    std::map<std::string, const Described*, std::less<>> attributes; // "" is the element's text
};

using Expectations = std::map<std::string, Expected, std::less<>>;

// Every header has these, whatever the message.
struct HeaderField
{
    std::string_view name;
    std::size_t size;
};

constexpr HeaderField kHeaderFields[] = {{"Msg_type", sizeof(ZEL_PROTOCOL_HEADER::Msg_type)},
                                         {"Msg_code", sizeof(ZEL_PROTOCOL_HEADER::Msg_code)},
                                         {"Msg_flag", sizeof(ZEL_PROTOCOL_HEADER::Msg_flag)},
                                         {"Msg_uuid", sizeof(ZEL_PROTOCOL_HEADER::Msg_uuid)},
                                         {"Msg_chn", sizeof(ZEL_PROTOCOL_HEADER::Msg_chn)}};

Expectations expectationsOf(const std::vector<Described>& parts)
{
    Expectations all;
    all[""].most = 1;
    all[std::string(kHeader)].most = 1;
    for (const Described& part : parts) {
        Expected& expected = all[part.path];
        if (part.isElement)
            expected.most += std::max<std::size_t>(part.rows, 1);
        else if (const auto [known, isNew] = expected.attributes.emplace(part.attribute, &part); !isNew)
            // What is read tells more than what is written beside it.
            known->second = part.direction == ZEL_ONLY_WRITTEN ? known->second : &part;
    }
    return all;
}

// --- Values --------------------------------------------------------------------------------------

struct Range
{
    long double least;
    long double most;
};

// Of a field as it is meant: signed where it is printed so.
Range rangeOf(const Field& field, ZEL_FORM form)
{
    const bool isSigned = field.type == Type::kInt8 || field.type == Type::kInt16 ||
                          field.type == Type::kInt32 || field.type == Type::kInt64;
    const auto bits = static_cast<int>(8 * field.size);
    const long double whole = 2.0L * static_cast<long double>(1ULL << (bits - 1));
    // An unsigned field takes what either reading of its width can hold where it is printed with a sign.
    if (form == ZEL_FORM_SIGNED)
        return {-whole / 2, whole - 1};
    if (isSigned)
        return {-whole / 2, whole / 2 - 1};
    // Peers write the absent value as -1.
    return {-1, whole - 1};
}

constexpr const char* kSpace = " \t\r\n\v\f";

// How many bytes of a text are a whole number, white space around it included; 0: there is none.
std::size_t lengthOfNumber(const std::string& value)
{
    std::size_t at = std::min(value.find_first_not_of(kSpace), value.size());
    at += at < value.size() && (value[at] == '-' || value[at] == '+');
    const std::size_t digits = at;
    while (at < value.size() && std::isdigit(static_cast<unsigned char>(value[at])))
        ++at;
    return at == digits ? 0 : std::min(value.find_first_not_of(kSpace, at), value.size());
}

bool isInteger(ZEL_FORM form)
{
    return form == ZEL_FORM_NUMBER || form == ZEL_FORM_SIGNED || form == ZEL_FORM_ATOI;
}

bool isText(ZEL_FORM form)
{
    return form == ZEL_FORM_TEXT || form == ZEL_FORM_WHOLE_TEXT;
}

struct Complaint
{
    Finding finding;
    std::string why;
};

std::vector<Complaint> complaintsOfInteger(const std::string& value, const Field& field, ZEL_FORM form)
{
    const std::size_t length = lengthOfNumber(value);
    if (length == 0)
        return {{Finding::kNoNumber,
                 form == ZEL_FORM_ATOI ? "is no number and taken for 0" : "is no number and passed over"}};
    std::vector<Complaint> complaints;
    if (length < value.size())
        complaints.push_back({Finding::kNoNumber, "has more than a number, which alone is taken"});
    const long double number = std::strtold(value.c_str(), nullptr);
    const auto [least, most] = rangeOf(field, form);
    if (number < least || number > most)
        complaints.push_back({Finding::kBeyondRange, "is beyond the range of " + declarationOf(field)});
    return complaints;
}

std::vector<Complaint> complaintsOf(const std::string& value, const Field& field, ZEL_FORM form)
{
    if (isInteger(form))
        return complaintsOfInteger(value, field, form);
    if (isText(form)) {
        const std::size_t room = field.size - (form == ZEL_FORM_TEXT ? 1 : 0);
        if (value.size() > room)
            return {{Finding::kTextCut, "has " + std::to_string(value.size()) +
                                            " bytes, and there is room for " + std::to_string(room)}};
        return {};
    }
    const char* const digits = form == ZEL_FORM_HEX ? "0123456789abcdefABCDEF" : "0123456789";
    if (form != ZEL_FORM_TEXT_LIST && form != ZEL_FORM_OWN &&
        value.find_first_of(digits) == std::string::npos && !value.empty())
        return {{Finding::kNoNumber, "has no number"}};
    return {};
}

// --- The walk ------------------------------------------------------------------------------------

class Checker
{
public:
    Checker(const Analysed& analysed, bool showSecrets)
        : m_message(analysed.message), m_text(analysed.text), m_showSecrets(showSecrets)
    {
        for (std::size_t at = m_text.find('\n'); at != std::string_view::npos; at = m_text.find('\n', at + 1))
            m_lines.push_back(at + 1);
    }

    std::vector<Remark> run()
    {
        std::vector<Described> parts;
        if (m_message.record)
            parts = describe(m_message.index, m_message.kind);
        m_expected = expectationsOf(parts);
        m_elements = readMarkup(m_text);
        composeAgain();
        walkRoot();
        compareTexts();
        std::stable_sort(m_remarks.begin(), m_remarks.end(), [](const Remark& one, const Remark& other) {
            return std::tie(one.line, one.column) < std::tie(other.line, other.column);
        });
        return std::move(m_remarks);
    }

private:
    // Without what may not be composed there is nothing to hold the text against.
    void composeAgain()
    {
        Cipher plain;
        m_composed = compose(m_message, plain);
        if (m_composed.status != 0)
            return;
        const std::string_view text = textOf(m_composed);
        m_again = text.substr(0, text.rfind('>') + 1);
        m_composedElements = readMarkup(m_again);
    }

    void walkRoot()
    {
        const auto rootOf = [](const std::vector<Element>& elements) {
            return elements.empty() || elements.front().children.empty() ? 0
                                                                         : elements.front().children.front();
        };
        if (rootOf(m_elements) == 0)
            return;
        walkChildren(rootOf(m_elements), rootOf(m_composedElements), "", [this](std::string_view name) {
            const std::string beside = "../" + std::string(name);
            return name == "MESSAGE_BODY" ? "" : m_expected.count(beside) != 0 ? beside : std::string(name);
        });
    }

    // `shown` is the path for people, `pathOf` gives a child's in the description; `again` is the same
    // element of the composed text, or 0.
    template <class PathOf>
    void walkChildren(std::size_t parent, std::size_t again, const std::string& shown, const PathOf& pathOf)
    {
        std::map<std::string_view, std::size_t> counts;
        for (const std::size_t index : m_elements[parent].children) {
            const std::string_view name = m_elements[index].name;
            const std::string shownName = shown.empty() ? std::string(name) : shown + "/" + std::string(name);
            const auto expected = m_expected.find(pathOf(name));
            const std::size_t before = counts[name]++;
            if (expected == m_expected.end())
                remark(Finding::kUnknownElement, name, shownName, "nobody reads it");
            else if (before >= expected->second.most)
                remark(Finding::kRowsBeyondArray, name, shownName,
                       "there is room for " + std::to_string(expected->second.most));
            else
                walkElement(index, composedChild(again, name, before), expected->first, expected->second,
                            shownName);
        }
    }

    void walkElement(std::size_t index, std::size_t again, const std::string& path, const Expected& expected,
                     const std::string& shown)
    {
        const Element& element = m_elements[index];
        std::set<std::string_view> seen;
        for (const Attribute& attribute : element.attributes) {
            const std::string where = shown + "@" + std::string(attribute.name);
            if (!seen.insert(attribute.name).second)
                remark(Finding::kRepeatedAttribute, attribute.name, where,
                       "is there twice, and one of them is read");
            checkAttribute(attribute, path, expected, where);
        }
        if (!element.text.empty())
            if (const auto known = expected.attributes.find(""); known != expected.attributes.end())
                checkValue(element.text, *known->second, shown);
        if (again != 0)
            for (const Attribute& attribute : m_composedElements[again].attributes)
                if (seen.count(attribute.name) == 0)
                    remark(Finding::kMissingAttribute, element.name,
                           shown + "@" + std::string(attribute.name), "is missing");
        walkChildren(index, again, shown, [&](std::string_view name) {
            return path.empty() ? std::string(name) : path + "/" + std::string(name);
        });
    }

    void checkAttribute(const Attribute& attribute, const std::string& path, const Expected& expected,
                        const std::string& where)
    {
        const auto known = expected.attributes.find(attribute.name);
        if (known != expected.attributes.end())
            return checkValue(attribute.value, *known->second, where);
        const auto* const field =
            std::find_if(std::begin(kHeaderFields), std::end(kHeaderFields),
                         [&](const HeaderField& one) { return one.name == attribute.name; });
        if (path != kHeader || field == std::end(kHeaderFields))
            return remark(Finding::kUnknownAttribute, attribute.name, where, "nobody reads it");
        const std::string value = resolved(attribute.value);
        if (value.size() >= field->size)
            remark(Finding::kTextCut, attribute.value, where,
                   shownValue(value, false) + " has " + std::to_string(value.size()) +
                       " bytes, and there is room for " + std::to_string(field->size - 1));
        else if (field->name == "Msg_code" && m_message.entry.Msg_code[0] != '\0' &&
                 value != m_message.entry.Msg_code)
            remark(Finding::kNoNumber, attribute.value, where,
                   shownValue(value, false) + " is taken for " + m_message.entry.Msg_code);
    }

    void checkValue(std::string_view raw, const Described& part, const std::string& where)
    {
        if (!part.place.field || part.direction == ZEL_ONLY_WRITTEN)
            return;
        const std::string value = resolved(raw);
        for (const Complaint& complaint : complaintsOf(value, *part.place.field, part.form))
            remark(complaint.finding, raw, where,
                   shownValue(value, part.place.field->isSecret) + " " + complaint.why);
    }

    std::size_t composedChild(std::size_t parent, std::string_view name, std::size_t number) const
    {
        if (parent == 0)
            return 0;
        for (const std::size_t index : m_composedElements[parent].children)
            if (m_composedElements[index].name == name && number-- == 0)
                return index;
        return 0;
    }

    void compareTexts()
    {
        if (m_composed.status != 0 || m_text == m_again)
            return;
        const auto [mine, theirs] =
            std::mismatch(m_text.begin(), m_text.end(), m_again.begin(), m_again.end());
        const auto at = static_cast<std::size_t>(mine - m_text.begin());
        remark(Finding::kNotTheSameBytes, m_text.substr(at, 0), "",
               "composed again this line is " +
                   lineAt(m_again, static_cast<std::size_t>(theirs - m_again.begin())));
    }

    std::string lineAt(std::string_view text, std::size_t at) const
    {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const std::size_t begin = at == 0 ? 0 : text.rfind('\n', at - 1) + 1;
        const std::string_view line = text.substr(begin, end - begin);
        return quotedText(m_showSecrets ? std::string(line) : hideSecrets(line));
    }

    std::string shownValue(const std::string& value, bool isSecretField) const
    {
        constexpr std::size_t kMost = 60;
        if (isSecretField && !m_showSecrets)
            return std::string(kHidden);
        return value.size() <= kMost ? quotedText(value) : quotedText(value.substr(0, kMost)) + "...";
    }

    void remark(Finding finding, std::string_view at, const std::string& path, std::string detail)
    {
        const auto offset = static_cast<std::size_t>(at.data() - m_text.data());
        const auto line = std::upper_bound(m_lines.begin(), m_lines.end(), offset);
        m_remarks.push_back({finding, static_cast<std::size_t>(line - m_lines.begin()),
                             offset - *(line - 1) + 1, path, std::move(detail)});
    }

    const Message& m_message;
    std::string_view m_text;
    bool m_showSecrets;
    std::vector<std::size_t> m_lines{0}; // where they begin
    Expectations m_expected;
    std::vector<Element> m_elements;
    Composed m_composed;
    std::string_view m_again;
    std::vector<Element> m_composedElements;
    std::vector<Remark> m_remarks;
};

} // namespace

std::string_view nameOf(Finding finding)
{
    constexpr std::string_view kNames[] = {"unknown-element",    "unknown-attribute", "missing-attribute",
                                           "repeated-attribute", "no-number",         "beyond-range",
                                           "text-cut",           "rows-beyond-array", "not-the-same-bytes"};
    return kNames[static_cast<std::size_t>(finding)];
}

std::vector<Remark> check(const Analysed& analysed, bool showSecrets)
{
    if (analysed.message.index < 0 || analysed.text.empty())
        return {};
    return Checker(analysed, showSecrets).run();
}

} // namespace inspect
