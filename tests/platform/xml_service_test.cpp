#include "zel_platform/xml.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include "zel_platform/xml_memory.h"

namespace {

/* Exactly the bytes of the text, without a terminator: a sanitizer sees the first byte read behind them. */
int parseExact(ZelXMLParser& parser, const std::string& text)
{
    const std::unique_ptr<char[]> bytes(new char[text.size()]);
    std::memcpy(bytes.get(), text.data(), text.size());
    return parser.Parse(bytes.get(), static_cast<int>(text.size()));
}

std::string valueOf(const ZelXMLParser& parser, void* node, const char* name)
{
    const char* const value = parser.Attribute(node, name);
    return value ? value : "(none)";
}

std::string element(const std::string& value)
{
    return "<r v=\"" + value + "\"/>";
}

std::string nested(int depth)
{
    std::string text;
    for (int i = 0; i < depth; ++i)
        text += "<e>";
    text += "x";
    for (int i = 0; i < depth; ++i)
        text += "</e>";
    return text;
}

int allocationsLeft = INT_MAX;
int blocksTaken = 0;

} // namespace

TEST(XmlService, FindsElementsAndTextByName)
{
    ZelXMLParser parser;
    ASSERT_EQ(0, parseExact(parser, "<?xml version=\"1.0\" encoding=\"GB2312\" ?>\n<root><!--c--><?pi a?>t"
                                    "<one a=\"1\"/><two>\n text</two><one a=\"2\"><one a=\"inner\"/></one>"
                                    "<blank> \n\t</blank><cdata><![CDATA[<&#0x>]]></cdata><none/></root>"));
    void* const root = parser.RootElement();
    ASSERT_NE(nullptr, root);

    void* const first = parser.FirstChildElement(root, "one");
    EXPECT_EQ("1", valueOf(parser, first, "a"));
    void* const second = parser.NextSiblingElement(first, "one");
    EXPECT_EQ("2", valueOf(parser, second, "a"));
    EXPECT_EQ("inner", valueOf(parser, parser.FirstChildElement(second, "one"), "a"));
    EXPECT_EQ(nullptr, parser.NextSiblingElement(second, "one"));
    EXPECT_EQ(nullptr, parser.FirstChildElement(root, "On"));
    EXPECT_EQ(nullptr, parser.FirstChildElement(root, "pi"));

    EXPECT_STREQ("\n text", parser.GetText(parser.FirstChildElement(root, "two")));
    EXPECT_STREQ("<&#0x>", parser.GetText(parser.FirstChildElement(root, "cdata")));
    EXPECT_STREQ("t", parser.GetText(root));
    EXPECT_EQ(nullptr, parser.GetText(parser.FirstChildElement(root, "blank")));
    EXPECT_EQ(nullptr, parser.GetText(parser.FirstChildElement(root, "none")));
}

TEST(XmlService, NothingIsFoundWithoutANode)
{
    ZelXMLParser empty;
    ZelXMLParser parser;
    ASSERT_EQ(0, parseExact(parser, element("1")));
    int number = 7;
    char text[4] = "abc";
    for (const ZelXMLParser& each : {empty, parser}) {
        EXPECT_EQ(nullptr, each.FirstChildElement(nullptr, "r"));
        EXPECT_EQ(nullptr, each.NextSiblingElement(nullptr, "r"));
        EXPECT_EQ(nullptr, each.Attribute(nullptr, "v"));
        EXPECT_EQ(nullptr, each.GetText(nullptr));
        EXPECT_NE(0, getXmlIntTypeParamAttribute(each, nullptr, "v", &number));
        EXPECT_NE(0, getXmlIntTypeParamByGetText(each, nullptr, &number));
        EXPECT_NE(0, getXmlStringTypeParamAttribute(each, nullptr, "v", text, 4));
        EXPECT_NE(0, getXmlStringTypeParamByGetText(each, nullptr, text, 4));
    }
    EXPECT_EQ(nullptr, empty.RootElement());
    EXPECT_EQ(7, number);
    EXPECT_STREQ("abc", text);
}

TEST(XmlService, AttributesInAnyOrderAcrossNodesAndBeyondTheKnownOnes)
{
    std::string text = "<r><a";
    for (int i = 0; i < 100; ++i)
        text += " n" + std::to_string(i) + "=\"a" + std::to_string(i) + "\"";
    text += "/><b n1=\"b1\" n7=\"b7\" n=\"\"/></r>";
    ZelXMLParser parser;
    ASSERT_EQ(0, parseExact(parser, text));
    void* const a = parser.FirstChildElement(parser.RootElement(), "a");
    void* const b = parser.FirstChildElement(parser.RootElement(), "b");

    /* Each stride visits all hundred in another order; in between the other node takes the memory of the
     * last match, finds and misses. */
    for (const int stride : {1, 99, 3, 37}) {
        for (int i = 0, n = 0; i < 100; ++i, n = (n + stride) % 100) {
            const std::string name = "n" + std::to_string(n);
            EXPECT_EQ("a" + std::to_string(n), valueOf(parser, a, name.c_str()));
            if (i % 5 == 0) {
                EXPECT_EQ("b7", valueOf(parser, b, "n7"));
                EXPECT_EQ("b1", valueOf(parser, b, "n1"));
                EXPECT_EQ("", valueOf(parser, b, "n"));
                EXPECT_EQ("(none)", valueOf(parser, b, "n2"));
            }
            EXPECT_EQ("(none)", valueOf(parser, a, "n100"));
            EXPECT_EQ("(none)", valueOf(parser, a, ""));
        }
    }
}

TEST(XmlService, ValuesAreWritableAndStayWithTheDocument)
{
    ZelXMLParser parser;
    ASSERT_EQ(0, parseExact(parser, "<r a=\"1,2\" b=\"&lt;&#65;&#x42;&#256;&#x20AC;&#x1F642;&amp;&unknown;\""
                                    " c=\" x\r\n\ty \"/>"));
    void* const root = parser.RootElement();
    EXPECT_STREQ("1", std::strtok(parser.Attribute(root, "a"), ","));
    EXPECT_STREQ("2", std::strtok(nullptr, ","));
    EXPECT_EQ("<AB\xC4\x80\xE2\x82\xAC\xF0\x9F\x99\x82&&unknown;", valueOf(parser, root, "b"));
    EXPECT_EQ(" x\r\n\ty ", valueOf(parser, root, "c"));
    EXPECT_EQ("1", valueOf(parser, root, "a"));

    /* Bytes of another encoding pass as they are. */
    ASSERT_EQ(0, parseExact(parser, element("\xB1\xB1\xBE\xA9\xFF")));
    EXPECT_EQ("\xB1\xB1\xBE\xA9\xFF", valueOf(parser, parser.RootElement(), "v"));
}

TEST(XmlService, CopiesShareADocumentThatOutlivesEachOfThem)
{
    std::unique_ptr<ZelXMLParser> first(new ZelXMLParser);
    ASSERT_EQ(0, parseExact(*first, element("old")));
    void* const root = first->RootElement();
    ZelXMLParser copy(*first);
    ZelXMLParser assigned;
    assigned = copy;
    EXPECT_EQ(root, assigned.RootElement());

    /* The new text lies in the document that it replaces. */
    ASSERT_EQ(0, first->Parse(element("new").c_str()));
    char* const inner = first->Attribute(first->RootElement(), "v");
    std::memcpy(inner, "<i>", 3);
    EXPECT_NE(0, first->Parse(inner, 3));
    EXPECT_EQ(nullptr, first->RootElement());
    std::memcpy(assigned.Attribute(root, "v"), "<i>", 3);

    first.reset();
    ZelXMLParser& itself = assigned;
    assigned = itself;
    assigned = ZelXMLParser();
    EXPECT_EQ("<i>", valueOf(copy, root, "v"));
}

TEST(XmlService, RefusesWhatIsNoSafeDocument)
{
    const std::string refused[] = {"",
                                   " ",
                                   "text",
                                   "<!-- -->",
                                   "<r",
                                   "<r>",
                                   "<r></s>",
                                   "<r a/>",
                                   "<r a=1/>",
                                   "<r/><",
                                   std::string("<r>\0</r>", 8),
                                   std::string("<r/>\0", 5),
                                   "<!DOCTYPE r><r/>",
                                   "<r/><!DOCTYPE r>",
                                   "<!DOCTYPE r [<!ENTITY a \"b\">]><r>&a;</r>",
                                   "<r><!DOCTYPE r></r>",
                                   element("&#0;"),
                                   element("a&#x0;"),
                                   element("&#00000000000;"),
                                   element("&#x000;"),
                                   element("&#4294967296;"),
                                   element("&#x100000000;"),
                                   element("&#4294967361;"),
                                   element("&#1114112;"),
                                   element("&#xFFFFFFFF;"),
                                   element("&&am&#&#x0;"),
                                   "<r>&#0;</r>",
                                   nested(65),
                                   "<a/>" + nested(65),
                                   nested(200000)};
    for (const std::string& text : refused) {
        ZelXMLParser parser;
        ASSERT_EQ(0, parseExact(parser, element("1")));
        EXPECT_NE(0, parseExact(parser, text)) << text.substr(0, 80);
        EXPECT_EQ(nullptr, parser.RootElement()) << text.substr(0, 80);
    }

    ZelXMLParser parser;
    EXPECT_NE(0, parser.Parse(nullptr));
    EXPECT_NE(0, parser.Parse(nullptr, 4));
    EXPECT_NE(0, parser.Parse("<r/>", 0));
    EXPECT_NE(0, parser.Parse("<r/>", -1));
    EXPECT_NE(0, parser.Parse("<r/>", INT_MIN));
}

TEST(XmlService, TakesWhatIsJustAllowed)
{
    const std::string taken[] = {nested(64), "<!-- <!DOCTYPE r> --><r/>",
                                 element("&#;&#x;&#0&#x0 &#G0;&#X0;&#-0;"), element("&#1114111;"),
                                 "\xEF\xBB\xBF<r/>"};
    for (const std::string& text : taken) {
        ZelXMLParser parser;
        EXPECT_EQ(0, parseExact(parser, text)) << text.substr(0, 80);
        EXPECT_NE(nullptr, parser.RootElement()) << text.substr(0, 80);
    }
}

TEST(XmlService, EveryPrefixOfATextIsReadWithinItsBytes)
{
    const std::string text = "<?xml version=\"1.0\"?>\n<r a=\"&#65;\" b='x'>t&lt;<![CDATA[c]]><e/>&#x41;</r>";
    for (std::size_t length = 0; length <= text.size(); ++length) {
        ZelXMLParser parser;
        EXPECT_EQ(length == text.size(), parseExact(parser, text.substr(0, length)) == 0) << length;
    }
}

TEST(XmlService, TakesOneBlockOrNone)
{
    std::string text = "<r>";
    for (int i = 0; i < 2000; ++i)
        text += "<e a=\"1\"/>";
    text += "</r>";
    allocationsLeft = 0;
    {
        ZelXMLParser parser;
        EXPECT_NE(0, parseExact(parser, text));
        EXPECT_EQ(nullptr, parser.RootElement());
        allocationsLeft = 1;
        EXPECT_EQ(0, parseExact(parser, text));
        EXPECT_EQ(1, blocksTaken);
        allocationsLeft = INT_MAX;
        EXPECT_NE(0, parseExact(parser, text + "<"));
        EXPECT_EQ(0, blocksTaken);
    }
    EXPECT_EQ(0, blocksTaken);
}

namespace {

/* Everything that a text consists of, whole and broken. */
std::string randomText(std::mt19937& random)
{
    static const char* const kPieces[] = {"<a",
                                          "<b",
                                          "</a>",
                                          "</b>",
                                          "/>",
                                          ">",
                                          " x=\"1\"",
                                          " y='2'",
                                          " x=\"",
                                          "\"",
                                          "'",
                                          "=",
                                          "<",
                                          "</",
                                          "text",
                                          " ",
                                          "\n",
                                          "<!--c-->",
                                          "<![CDATA[d]]>",
                                          "<![CDATA[ ]]>",
                                          "]]>",
                                          "-->",
                                          "<?p i?>",
                                          "<?xml version=\"1.0\"?>",
                                          "&lt;",
                                          "&amp;",
                                          "&#65;",
                                          "&#x42;",
                                          "&unknown;",
                                          "&",
                                          "<a x=\"1\" y=\"2\">",
                                          "<a/>",
                                          "<a>",
                                          "<b>",
                                          "<c:d-e.f/>",
                                          "\xC3\xA4",
                                          "<\xC3\xA4/>",
                                          "\t",
                                          "a",
                                          " x =\n\"1\"",
                                          "<a>t</a>",
                                          "<a ></a >"};
    const auto pick = [&random](std::size_t count) { return random() % count; };
    std::string text = pick(2) ? "<a>" : "";
    for (std::size_t i = 1 + pick(14); i > 0; --i)
        text += kPieces[pick(std::size(kPieces))];
    return text + (pick(2) ? "</a>" : "");
}

void expectSame(const ZelXMLParser& parser, void* node, const pugi::xml_node& other, const std::string& text)
{
    std::string ownText;
    for (const pugi::xml_node child : other.children()) {
        const std::string value = child.value();
        if (ownText.empty() && value.find_first_not_of(" \t\n\v\f\r") != std::string::npos)
            ownText = value;
    }
    const char* const read = parser.GetText(node);
    EXPECT_EQ(ownText, read ? read : "") << text;
    std::map<std::string, std::set<std::string>> values;
    for (const pugi::xml_attribute attribute : other.attributes())
        values[attribute.name()].insert(attribute.value());
    for (const auto& [name, all] : values) {
        const char* const value = parser.Attribute(node, name.c_str());
        EXPECT_TRUE(value && all.count(value) == 1) << text;
    }
    for (const pugi::xml_node child : other.children()) {
        if (child.type() != pugi::node_element)
            continue;
        void* own = parser.FirstChildElement(node, child.name());
        for (auto before = child.previous_sibling(child.name()); before;
             before = before.previous_sibling(child.name()))
            own = parser.NextSiblingElement(own, child.name());
        ASSERT_NE(nullptr, own) << text;
        expectSame(parser, own, child, text);
    }
}

} // namespace

namespace {

/* What the two ways of reading an attribute give must be the same, its absence included. */
void expectSameByLength(const ZelXMLParser& parser, void* node, const std::string& name)
{
    const auto expectSame = [&](auto byName, auto byLength, auto one) {
        auto other = one;
        EXPECT_EQ(byName(parser, node, name.c_str(), &one) == 0,
                  (parser.*byLength)(node, name.c_str(), name.size(), &other))
            << name;
        EXPECT_EQ(one, other) << name;
    };
    expectSame(getXmlIntTypeParamAttribute, &ZelXMLParser::ReadInt, 7);
    expectSame(getXmlUIntTypeParamAttribute, &ZelXMLParser::ReadUInt, 7U);
    expectSame(getXmlUCharTypeParamAttribute, &ZelXMLParser::ReadUChar, static_cast<unsigned char>(7));
    expectSame(getXmlUllTypeParamAttribute, &ZelXMLParser::ReadUll, 7ULL);
    for (const int limit : {0, 1, 4, 9, 100}) {
        char one[100] = "one";
        char other[100] = "one";
        EXPECT_EQ(getXmlStringTypeParamAttribute(parser, node, name.c_str(), one, limit) == 0,
                  parser.ReadString(node, name.c_str(), name.size(), other, static_cast<std::size_t>(limit)));
        EXPECT_STREQ(one, other);
    }
    std::size_t size = 0;
    const char* const bytes = parser.Attribute(node, name.c_str(), name.size(), &size);
    const char* const value = parser.Attribute(node, name.c_str());
    EXPECT_EQ(value, bytes);
    EXPECT_EQ(value ? std::strlen(value) : 0, size) << name;
}

} // namespace

TEST(XmlService, ReadingByLengthGivesTheSame)
{
    const std::string values[] = {"",
                                  "0",
                                  "7",
                                  "12",
                                  "255",
                                  "256",
                                  "999",
                                  "1000",
                                  "9999",
                                  "12345",
                                  "4294967296",
                                  "-1",
                                  "+5",
                                  " 12",
                                  "12 ",
                                  "1x",
                                  "0x1",
                                  "/",
                                  ":",
                                  "00012",
                                  "\xB1\xB2",
                                  "1&#50;",
                                  "&#49;&#50;3",
                                  "a b",
                                  "a=\"",
                                  "12345678901234567",
                                  "1,2,3"};
    std::string text = "<r";
    std::vector<std::string> names;
    for (const std::string& value : values) {
        names.push_back("n" + std::string(names.size(), 'x'));
        const bool isDouble = value.find('"') == std::string::npos;
        text += " " + names.back() + (isDouble ? "=\"" + value + "\"" : " = '" + value + "'");
    }
    ZelXMLParser parser;
    ASSERT_EQ(0, parseExact(parser, text + "/>"));
    names.insert(names.end(), {"", "n1", "absent", "nxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"});
    for (const std::string& name : names) {
        expectSameByLength(parser, parser.RootElement(), name);
        expectSameByLength(parser, nullptr, name);
    }

    ASSERT_EQ(
        0, parseExact(parser, "<r><abcdefgh/><abcdefghi/><abcdefghijklmnopq n='1'/><abcdefghi n='2'/></r>"));
    void* const root = parser.RootElement();
    for (const std::string name : {"abcdefgh", "abcdefghi", "abcdefghijklmnopq", "abcdefghijklmnoxq", "a"}) {
        void* const child = parser.FirstChildElement(root, name.c_str());
        EXPECT_EQ(child, parser.FirstChildElement(root, name.c_str(), name.size()));
        EXPECT_EQ(parser.NextSiblingElement(child, "abcdefghi"),
                  parser.NextSiblingElement(child, "abcdefghi", 9));
    }
}

TEST(XmlService, TellsWhetherAllSignsAreQuoted)
{
    const auto isQuoted = [](const std::string& text) {
        ZelXMLParser parser;
        return parseExact(parser, text) == 0 && parser.IsQuoted();
    };
    EXPECT_TRUE(
        isQuoted("<?xml version=\"1.0\" encoding=\"GB2312\" ?>\n<r a=\"1\" b =\"/\"><e c=\"\"/></r>"));
    /* No false yes: the search for what is to be repaired rests on it. */
    for (const char* text :
         {"<r a='1'/>", "<r a= \"1\"/>", "<r a=\"=\"/>", "<r a=\"x=3\" b='1'/>", "<r><!--a=3/--></r>",
          "<r>a=3/</r>", "<r><![CDATA[a=3]]></r>", "<r><?a b=3?></r>", "<r a=\"1\"/><!-- = -->"})
        EXPECT_FALSE(isQuoted(text)) << text;
}

/* Names and values of any length, so that each lies at and across the borders of blocks and of the list. */
TEST(XmlService, LongNamesAndValues)
{
    for (const std::size_t length : {1U, 15U, 16U, 17U, 60U, 64U, 1000U, 1024U, 1100U, 5000U}) {
        for (const char* piece : {"v", "/", "v ", ",", "&amp;", "'"}) {
            const std::string name(length, 'n');
            std::string value;
            std::string read;
            while (value.size() < length) {
                value += piece;
                read += piece[0];
                read += std::strcmp(piece, "v ") == 0 ? " " : "";
            }
            for (std::size_t shift = 0; shift < 70; shift += length < 100 ? 1 : 23) {
                ZelXMLParser parser;
                const std::string element = "<" + name + " a=\"" + value + "\" " + name + "=\"12\" z=\"9\">";
                ASSERT_EQ(
                    0, parseExact(parser, "<r>" + std::string(shift, ' ') + element + "</" + name + "></r>"));
                void* const node = parser.FirstChildElement(parser.RootElement(), name.c_str());
                ASSERT_NE(nullptr, node);
                EXPECT_EQ("12", valueOf(parser, node, name.c_str()));
                EXPECT_EQ("9", valueOf(parser, node, "z"));
                EXPECT_EQ(read, valueOf(parser, node, "a"));
                EXPECT_NE(0, parseExact(parser, element + "</" + name + "n>"));
                EXPECT_NE(0, parseExact(parser, element + "</" + name));
            }
        }
    }
}

/* A reader of general use is the judge of what is well-formed and what stands in it. */
TEST(XmlService, ReadsAsAnotherReaderDoes)
{
    std::mt19937 random(7);
    int accepted = 0;
    for (int i = 0; i < 20000; ++i) {
        const std::string text = randomText(random);
        ZelXMLParser parser;
        pugi::xml_document other;
        const bool good = parseExact(parser, text) == 0;
        ASSERT_EQ(good, static_cast<bool>(other.load_buffer(text.data(), text.size(),
                                                            pugi::parse_cdata | pugi::parse_escapes,
                                                            pugi::encoding_utf8)))
            << text;
        accepted += good;
        if (good)
            expectSame(parser, parser.RootElement(), other.document_element(), text);
    }
    EXPECT_GT(accepted, 500);
}

namespace {

/* What a number attribute gives in each width; absent where the sentinel stands. */
constexpr int kNoInt = 111;
constexpr unsigned char kNoByte = 222;
constexpr unsigned long long kNoLong = 333;

struct NumberCase
{
    const char* text;
    int asInt;
    unsigned char asByte;
    unsigned long long asLong;
};

} // namespace

TEST(XmlService, NumbersAreStoredByTheirBitsOrAbsent)
{
    const NumberCase cases[] = {
        {"0", 0, 0, 0},
        {"-0", 0, 0, 0},
        {"007", 7, 7, 7},
        {" \t\n\v\f\r+42 rest", 42, 42, 42},
        {"12.9", 12, 12, 12},
        {"0x10", 0, 0, 0},
        {"-1", -1, 255, ULLONG_MAX},
        {"-128", -128, 128, ULLONG_MAX - 127},
        {"-129", -129, kNoByte, ULLONG_MAX - 128},
        {"255", 255, 255, 255},
        {"256", 256, kNoByte, 256},
        {"2147483648", INT_MIN, kNoByte, 2147483648U},
        {"-2147483648", INT_MIN, kNoByte, 18446744071562067968U},
        {"-2147483649", kNoInt, kNoByte, 18446744071562067967U},
        {"4294967295", -1, kNoByte, 4294967295U},
        {"4294967296", kNoInt, kNoByte, 4294967296U},
        {"-9223372036854775808", kNoInt, kNoByte, 9223372036854775808U},
        {"-9223372036854775809", kNoInt, kNoByte, kNoLong},
        {"18446744073709551615", kNoInt, kNoByte, ULLONG_MAX},
        {"18446744073709551616", kNoInt, kNoByte, kNoLong},
        {"184467440737095516150", kNoInt, kNoByte, kNoLong},
        {"99999999999999999999999999999999999999999", kNoInt, kNoByte, kNoLong},
        {"", kNoInt, kNoByte, kNoLong},
        {" ", kNoInt, kNoByte, kNoLong},
        {"-", kNoInt, kNoByte, kNoLong},
        {"+-1", kNoInt, kNoByte, kNoLong},
        {"- 1", kNoInt, kNoByte, kNoLong},
        {"x1", kNoInt, kNoByte, kNoLong},
    };
    for (const NumberCase& each : cases) {
        ZelXMLParser parser;
        ASSERT_EQ(0, parseExact(parser, element(each.text)));
        void* const root = parser.RootElement();
        int asInt = kNoInt;
        unsigned int asUInt = kNoInt;
        unsigned char asByte = kNoByte;
        unsigned long long asLong = kNoLong;
        EXPECT_EQ(each.asInt == kNoInt, getXmlIntTypeParamAttribute(parser, root, "v", &asInt) != 0);
        EXPECT_EQ(each.asInt == kNoInt, getXmlUIntTypeParamAttribute(parser, root, "v", &asUInt) != 0);
        EXPECT_EQ(each.asByte == kNoByte, getXmlUCharTypeParamAttribute(parser, root, "v", &asByte) != 0);
        EXPECT_EQ(each.asLong == kNoLong, getXmlUllTypeParamAttribute(parser, root, "v", &asLong) != 0);
        EXPECT_EQ(each.asInt, asInt) << each.text;
        EXPECT_EQ(static_cast<unsigned int>(each.asInt), asUInt) << each.text;
        EXPECT_EQ(each.asByte, asByte) << each.text;
        EXPECT_EQ(each.asLong, asLong) << each.text;
    }
}

TEST(XmlService, FloatsAreReadWithoutALocaleOrAbsent)
{
    const struct
    {
        const char* text;
        float value;
    } cases[] = {{"1.5", 1.5F}, {" +2.25x", 2.25F}, {"-.5", -0.5F}, {"3,5", 3.0F},  {"1e2", 100.0F},
                 {"1e", 1.0F},  {"nan", 9.0F},      {"-inf", 9.0F}, {"1e39", 9.0F}, {"", 9.0F},
                 {"+-1", 9.0F}, {"x", 9.0F},        {"++1", 9.0F},  {"0", 0.0F}};
    for (const auto& each : cases) {
        ZelXMLParser parser;
        ASSERT_EQ(0, parseExact(parser, element(each.text)));
        float value = 9.0F;
        const int status = getXmlFloatTypeParamAttribute(parser, parser.RootElement(), "v", &value);
        EXPECT_EQ(each.value, value) << each.text;
        EXPECT_EQ(each.value == 9.0F, status != 0) << each.text;
    }
}

TEST(XmlService, TextsAreCutToLeaveRoomForTheirTerminator)
{
    ZelXMLParser parser;
    ASSERT_EQ(0, parseExact(parser, "<r v=\"abcd\" e=\"\"> 12 </r>"));
    void* const root = parser.RootElement();
    const std::string whole = "abcd";
    for (int limit = 1; limit <= 6; ++limit) {
        const std::unique_ptr<char[]> field(new char[static_cast<std::size_t>(limit)]);
        EXPECT_EQ(0, getXmlStringTypeParamAttribute(parser, root, "v", field.get(), limit));
        EXPECT_EQ(whole.substr(0, static_cast<std::size_t>(limit) - 1), field.get());
        EXPECT_EQ(0, getXmlStringTypeParamAttribute(parser, root, "e", field.get(), limit));
        EXPECT_STREQ("", field.get());
    }
    char field[4] = "xyz";
    for (const int limit : {0, -1, INT_MIN})
        EXPECT_NE(0, getXmlStringTypeParamAttribute(parser, root, "v", field, limit));
    EXPECT_NE(0, getXmlStringTypeParamAttribute(parser, root, "absent", field, 4));
    EXPECT_NE(0, getXmlStringTypeParamAttribute(parser, root, "v", nullptr, 4));
    EXPECT_STREQ("xyz", field);

    int number = 0;
    EXPECT_EQ(0, getXmlStringTypeParamByGetText(parser, root, field, 3));
    EXPECT_STREQ(" 1", field);
    EXPECT_EQ(0, getXmlIntTypeParamByGetText(parser, root, &number));
    EXPECT_EQ(12, number);
}

/* The reader's memory, in place of the default one. */
void* ZelXMLMalloc(size_t size)
{
    if (allocationsLeft-- <= 0)
        return nullptr;
    ++blocksTaken;
    return std::malloc(size);
}

void ZelXMLFree(void* block)
{
    --blocksTaken;
    std::free(block);
}
