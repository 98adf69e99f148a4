// What the tests of large records share: numbered fields, the lists of analytics, required elements.
#ifndef ZEL_TESTS_SUPPORT_FIELDS_H
#define ZEL_TESTS_SUPPORT_FIELDS_H

#include "support/wire.h"

namespace test {

// Numbers the fields in the order given.
template <class... Fields>
void number(int32_t first, Fields&... fields)
{
    ((fields = static_cast<Fields>(first++)), ...);
}

// A list of one to four periods, other ones for each count, with the text of each.
template <class Count>
void setPeriods(Count& count, TIME_PERIOD (&list)[4], size_t size)
{
    const TIME_PERIOD periods[] = {{1, 2, 3, 14, 15, 16}, {7, 8, 9, 20, 21, 22}, {10, 11, 12, 13, 14, 15}};
    count = static_cast<Count>(size);
    for (size_t i = 0; i < size; ++i)
        list[i] = periods[(size - 1 + i) % 3];
}

const std::string kPeriods1 = "[01:02:03-14:15:16],";
const std::string kPeriods2 = "[07:08:09-20:21:22],[10:11:12-13:14:15],";
const std::string kPeriods3 = "[10:11:12-13:14:15],[01:02:03-14:15:16],[07:08:09-20:21:22],";
const std::string kPeriods4 = kPeriods1 + kPeriods2 + kPeriods1;
const std::string kNoPeriods =
    "[-1:-1:-1--1:-1:-1],[-1:-1:-1--1:-1:-1],[-1:-1:-1--1:-1:-1],[-1:-1:-1--1:-1:-1],";

inline void setPoints(uint8_t& count, COORDINATE (&list)[8])
{
    count = 2;
    list[0] = {31, -32};
    list[1] = {33, 34};
}

const std::string kPoints = "[31,-32],[33,34],";
const std::string kNoPoints = "[-1,-1],[-1,-1],[-1,-1],[-1,-1],[-1,-1],[-1,-1],[-1,-1],[-1,-1],";

// The lists of a record whose counts are 255: each ends with its array.
inline void expectWholeLists(const std::string& type, const std::string& code, const void* record, int kind,
                             const std::string& names)
{
    const std::string text = bodyOf(type, code, record, kind);
    for (const std::string& name : split(names)) {
        const std::string& list = name.find("Period") == std::string::npos ? kNoPoints : kNoPeriods;
        EXPECT_NE(text.find("\n" + name + "=\"" + list + "\"\n"), std::string::npos) << code << text;
    }
}

// A body without the element that the leaf, named without its ending, can't do without.
inline void expectMissing(const std::string& type, const std::string& code, const std::string& leaf,
                          const std::string& element, const std::string& body = "<Other/>")
{
    resetServices();
    EXPECT_EQ(analyseBody(type, code, body).result, ZEL_ERR_NO_ELEMENT) << code;
    EXPECT_TRUE(loggedOnly(leaf + "_MessageAnalysis get " + element + " error\n")) << code;
}

// A text with its one occurrence of a part replaced.
inline std::string replaced(std::string text, const std::string& part, const std::string& by = "")
{
    const size_t at = text.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    return at == std::string::npos ? text : text.replace(at, part.size(), by);
}

// What a change has of an answer's attributes: all but the defaults, which don't come first.
inline std::string withoutDefaults(std::string text)
{
    for (size_t at; (at = text.find("|Def")) != std::string::npos;)
        text.erase(at, text.find('|', at + 1) - at);
    return text;
}

} // namespace test

#endif
