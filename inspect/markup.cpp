#include "inspect/markup.h"

#include <algorithm>

#include "zel_platform/xml.h"

namespace inspect {

namespace {

constexpr std::string_view kSpace = " \t\r\n\v\f";

class Reader
{
public:
    explicit Reader(std::string_view text) : m_text(text), m_elements(1) {}

    std::vector<Element> run()
    {
        while (m_at < m_text.size()) {
            const std::size_t tag = std::min(m_text.find('<', m_at), m_text.size());
            keepText(m_text.substr(m_at, tag - m_at));
            m_at = tag;
            if (m_at < m_text.size())
                readTag();
        }
        return std::move(m_elements);
    }

private:
    bool startsWith(std::string_view what) const
    {
        return m_text.compare(m_at, what.size(), what) == 0;
    }

    // Behind the next place of this, or at the end.
    std::string_view takeUntil(std::string_view end)
    {
        const std::size_t from = m_at;
        const std::size_t found = m_text.find(end, from);
        m_at = found == std::string_view::npos ? m_text.size() : found + end.size();
        return m_text.substr(from, std::min(found, m_text.size()) - from);
    }

    void skipSpace()
    {
        m_at = std::min(m_text.find_first_not_of(kSpace, m_at), m_text.size());
    }

    std::string_view takeName(std::string_view ends)
    {
        const std::size_t from = m_at;
        m_at = std::min(m_text.find_first_of(ends, from), m_text.size());
        return m_text.substr(from, m_at - from);
    }

    void keepText(std::string_view text)
    {
        Element& element = m_elements[m_open];
        if (element.text.empty() && text.find_first_not_of(kSpace) != std::string_view::npos)
            element.text = text;
    }

    void readTag()
    {
        if (startsWith("<!--"))
            takeUntil("-->");
        else if (startsWith("<![CDATA["))
            readCdata();
        else if (startsWith("<?"))
            takeUntil("?>");
        else if (startsWith("</"))
            closeElement();
        else
            openElement();
    }

    void readCdata()
    {
        m_at += std::string_view("<![CDATA[").size();
        keepText(takeUntil("]]>"));
    }

    // Of what is open, as the close of anything else is passed over.
    void closeElement()
    {
        m_at += 2;
        const std::string_view name = takeName(" \t\r\n\v\f>");
        takeUntil(">");
        if (m_open != 0 && m_elements[m_open].name == name)
            m_open = m_elements[m_open].parent;
    }

    void openElement()
    {
        ++m_at;
        const std::size_t index = m_elements.size();
        m_elements.emplace_back();
        m_elements[m_open].children.push_back(index);
        m_elements[index].parent = m_open;
        m_elements[index].name = takeName(" \t\r\n\v\f/>");
        for (skipSpace(); m_at < m_text.size() && m_text[m_at] != '>' && m_text[m_at] != '/'; skipSpace())
            m_elements[index].attributes.push_back(takeAttribute());
        if (takeUntil(">").find('/') == std::string_view::npos)
            m_open = index;
    }

    Attribute takeAttribute()
    {
        Attribute attribute;
        attribute.name = takeName(" \t\r\n\v\f=/>");
        skipSpace();
        if (m_at == m_text.size() || m_text[m_at] != '=') {
            // Neither a name nor a sign: never stand still.
            m_at += attribute.name.empty() && m_at < m_text.size();
            return attribute;
        }
        ++m_at;
        skipSpace();
        const char quote = m_at < m_text.size() ? m_text[m_at] : '\0';
        if (quote == '"' || quote == '\'') {
            ++m_at;
            attribute.value = takeUntil(std::string_view(&quote, 1));
        } else {
            attribute.value = takeName(" \t\r\n\v\f/>");
        }
        return attribute;
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_open = 0;
    std::vector<Element> m_elements;
};

} // namespace

std::vector<Element> readMarkup(std::string_view text)
{
    return Reader(text).run();
}

std::string resolved(std::string_view value)
{
    if (value.find('&') == std::string_view::npos)
        return std::string(value);
    const char quote = value.find('"') == std::string_view::npos ? '"' : '\'';
    std::string text("<a b=");
    text.append(1, quote).append(value).append(1, quote).append("/>");
    ZelXMLParser parser;
    if (parser.Parse(text.c_str()) != 0)
        return {};
    const char* const read = parser.Attribute(parser.RootElement(), "b");
    return read ? read : "";
}

} // namespace inspect
