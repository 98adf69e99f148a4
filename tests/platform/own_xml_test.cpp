/* An application's own XML service, which knows nothing of lookups by length: the library works on it as it
 * is. */
#include <cstring>
#include <deque>
#include <string>

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include "zel_platform/xml.h"
#include "zel_protocol/zel_protocol.h"

namespace {

struct Document : ZelXMLDocument
{
    pugi::xml_document tree;
    std::deque<pugi::xml_node> handles;
};

Document* current = nullptr;

void* handle(const pugi::xml_node& node)
{
    if (!node)
        return nullptr;
    current->handles.push_back(node);
    return &current->handles.back();
}

const char* valueOf(void* node, const char* name)
{
    return node ? static_cast<pugi::xml_node*>(node)->attribute(name).as_string(nullptr) : nullptr;
}

template <class Number>
int readNumber(void* node, const char* name, Number* value)
{
    const char* const text = valueOf(node, name);
    if (!text)
        return -1;
    *value = static_cast<Number>(std::stoll(text));
    return 0;
}

int readText(const char* text, char* value, int limit)
{
    if (!text || limit < 1)
        return -1;
    value[std::string(text).copy(value, static_cast<std::size_t>(limit) - 1)] = '\0';
    return 0;
}

} // namespace

int ZelXMLParser::Parse(const char* text, int length) noexcept
{
    auto* const document = new Document;
    document->references = 1;
    if (!document->tree.load_buffer(text, static_cast<std::size_t>(length))) {
        delete document;
        return -1;
    }
    current = document;
    document_ = document;
    return 0;
}

int ZelXMLParser::Parse(const char* text) noexcept
{
    return Parse(text, static_cast<int>(std::strlen(text)));
}

void ZelXMLParser::release(ZelXMLDocument* document) noexcept
{
    delete static_cast<Document*>(document);
}

void* ZelXMLParser::RootElement() const noexcept
{
    return document_ ? handle(static_cast<Document*>(document_)->tree.document_element()) : nullptr;
}

void* ZelXMLParser::FirstChildElement(void* node, const char* name) const noexcept
{
    return node ? handle(static_cast<pugi::xml_node*>(node)->child(name)) : nullptr;
}

void* ZelXMLParser::NextSiblingElement(void* node, const char* name) const noexcept
{
    return node ? handle(static_cast<pugi::xml_node*>(node)->next_sibling(name)) : nullptr;
}

char* ZelXMLParser::Attribute(void* node, const char* name) const noexcept
{
    return const_cast<char*>(valueOf(node, name));
}

const char* ZelXMLParser::GetText(void* node) const noexcept
{
    return node ? static_cast<pugi::xml_node*>(node)->text().as_string(nullptr) : nullptr;
}

int getXmlIntTypeParamAttribute(ZelXMLParser, void* node, const char* name, int* value) noexcept
{
    return readNumber(node, name, value);
}
int getXmlUIntTypeParamAttribute(ZelXMLParser, void* node, const char* name, unsigned int* value) noexcept
{
    return readNumber(node, name, value);
}
int getXmlUCharTypeParamAttribute(ZelXMLParser, void* node, const char* name, unsigned char* value) noexcept
{
    return readNumber(node, name, value);
}
int getXmlFloatTypeParamAttribute(ZelXMLParser, void* node, const char* name, float* value) noexcept
{
    return readNumber(node, name, value);
}
int getXmlUllTypeParamAttribute(ZelXMLParser, void* node, const char* name,
                                unsigned long long* value) noexcept
{
    return readNumber(node, name, value);
}
int getXmlStringTypeParamAttribute(ZelXMLParser, void* node, const char* name, char* value,
                                   int limit) noexcept
{
    return readText(valueOf(node, name), value, limit);
}
int getXmlIntTypeParamByGetText(ZelXMLParser parser, void* node, int* value) noexcept
{
    const char* const text = parser.GetText(node);
    return text && sscanf(text, "%d", value) == 1 ? 0 : -1;
}
int getXmlStringTypeParamByGetText(ZelXMLParser parser, void* node, char* value, int limit) noexcept
{
    return readText(parser.GetText(node), value, limit);
}

TEST(OwnXml, AMessageIsAnalysedThroughIt)
{
    std::string text =
        "<XML_ZELMAR><MESSAGE_HEADER Msg_type=\"USER_AUTH_MESSAGE\" Msg_code=\"CMD_USER_AUTH\"/>"
        "<MESSAGE_BODY><USER_AUTH_PARAM Username=\"operator\" Password=\"p\" AuthMethod=\"2\"/>"
        "</MESSAGE_BODY></XML_ZELMAR>";
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    void* result = nullptr;
    ASSERT_EQ(0, ZelProtocolMSGAnalysisStart(text.data(), static_cast<int>(text.size()), -1, nullptr, &header,
                                             &result));
    const auto& login = *static_cast<const USER_AUTH_CMD_USER_AUTH_PARAM*>(result);
    EXPECT_STREQ("operator", login.Username);
    EXPECT_EQ(2, login.AuthMethod);
    ZelProtocolMSGAnalysisStop(&result);
}

TEST(OwnXml, ReadingByLengthFallsBackOnIt)
{
    ZelXMLParser parser;
    EXPECT_EQ(nullptr, parser.FirstChildElement(nullptr, "a", 1));
    ASSERT_EQ(0, parser.Parse("<r><a n=\"12\"/><a t=\"text\"/></r>"));
    EXPECT_FALSE(parser.IsQuoted());
    void* const first = parser.FirstChildElement(parser.RootElement(), "a", 1);
    void* const second = parser.NextSiblingElement(first, "a", 1);
    int number = 0;
    unsigned int bits = 0;
    unsigned char byte = 0;
    unsigned long long wide = 0;
    EXPECT_TRUE(parser.ReadInt(first, "n", 1, &number) && parser.ReadUInt(first, "n", 1, &bits) &&
                parser.ReadUChar(first, "n", 1, &byte) && parser.ReadUll(first, "n", 1, &wide));
    EXPECT_EQ(48U, static_cast<unsigned int>(number) + bits + byte + static_cast<unsigned int>(wide));
    EXPECT_FALSE(parser.ReadInt(second, "n", 1, &number));
    std::size_t size = 0;
    EXPECT_STREQ("text", parser.Attribute(second, "t", 1, &size));
    EXPECT_EQ(4U, size);
    char value[4];
    EXPECT_TRUE(parser.ReadString(second, "t", 1, value, sizeof value));
    EXPECT_STREQ("tex", value);
}
