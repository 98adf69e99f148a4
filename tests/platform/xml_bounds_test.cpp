/* Texts as dense as they can be: whatever a reader reckons from a text's length must be enough for these. */
#include "zel_platform/xml.h"

#include <string>

#include <gtest/gtest.h>

namespace {

std::string repeated(const std::string& piece, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += piece;
    return text;
}

/* What stands before and behind the dense part is whole, and all of that part is there. */
void expectWhole(const std::string& dense, const char* name, int elements)
{
    const std::string text = "<r k=\"first\"><f k=\"one\">two</f>" + dense + "<l k=\"last\">end</l></r>";
    ZelXMLParser parser;
    ASSERT_EQ(0, parser.Parse(text.data(), static_cast<int>(text.size())));
    void* const root = parser.RootElement();
    ASSERT_NE(nullptr, root);
    EXPECT_STREQ("first", parser.Attribute(root, "k"));
    void* const first = parser.FirstChildElement(root, "f");
    void* const last = parser.FirstChildElement(root, "l");
    ASSERT_TRUE(first && last);
    EXPECT_STREQ("one", parser.Attribute(first, "k"));
    EXPECT_STREQ("two", parser.GetText(first));
    EXPECT_STREQ("last", parser.Attribute(last, "k"));
    EXPECT_STREQ("end", parser.GetText(last));
    int found = 0;
    for (void* node = parser.FirstChildElement(root, name); node;
         node = parser.NextSiblingElement(node, name))
        ++found;
    EXPECT_EQ(elements, found);
}

} // namespace

TEST(XmlBounds, TheDensestTextsAreReadWhole)
{
    for (const int count : {1, 2, 3, 10, 100, 5000}) {
        expectWhole("<a" + repeated(" b=\"\"", count) + "/>", "a", 1);
        expectWhole("<a" + repeated(" b=''", count) + "></a>", "a", 1);
        expectWhole(repeated("<a/>", count), "a", count);
        expectWhole(repeated("<a>x</a>", count), "a", count);
        expectWhole(repeated("<a b=''/>", count), "a", count);
        expectWhole(repeated("<a/>", count) + "<a" + repeated("\tb=''", count) + "/>", "a", count + 1);
    }
}

TEST(XmlBounds, EachOfManyAttributesKeepsItsValue)
{
    std::string text = "<r";
    for (int i = 0; i < 4000; ++i)
        text += " a" + std::to_string(i) + "='" + std::to_string(i % 10) + "'";
    text += "/>";
    ZelXMLParser parser;
    ASSERT_EQ(0, parser.Parse(text.data(), static_cast<int>(text.size())));
    for (int i = 0; i < 4000; ++i)
        ASSERT_STREQ(std::to_string(i % 10).c_str(),
                     parser.Attribute(parser.RootElement(), ("a" + std::to_string(i)).c_str()))
            << i;
}
