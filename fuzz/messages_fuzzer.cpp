// Valid messages of every kind, their lines shuffled, cut, repeated and changed, and their raw data too; what
// is read from them is composed again.
#include <sanitizer/allocator_interface.h>

#include <cstring>
#include <vector>

#include "promises.h"

namespace {

using namespace fuzz;

constexpr size_t kLongestMessage = 64 * 1024;

// What a changed value becomes.
constexpr const char* kValues[] = {
    "",
    "-1",
    "0",
    "1",
    "2",
    "3",
    "255",
    "256",
    "65536",
    "2147483647",
    "2147483648",
    "-2147483648",
    "4294967295",
    "4294967296",
    "18446744073709551615",
    "99999999999999999999999999",
    "1e39",
    "0x10",
    " 7",
    "-",
    "12:34:56",
    "[1:2:3-4:5:6],[7:8:9-10:11:12],[1:2],[0:0:0-0:0:0],[1:1:1-1:1:1],[2:2:2-2:2:2]",
    "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27",
    ",,,,,",
    "[1,2],[3,4],[5,6],[7,8],[9,10],[11,12],[13,14],[15,16],[17,18],[99999999999,x]",
    "1920x1080",
    "1-100",
    "&#65;&lt;&amp;",
    "stop",
    "38",
    "501"};

// What is put between two lines.
const std::string kPieces[] = {"<Vendor a=\"1\"><b/></Vendor>",
                               "<!-- c -->",
                               "<![CDATA[text]]>",
                               "plain text",
                               "<a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a>",
                               "</MESSAGE_BODY>",
                               "</XML_ZELMAR>",
                               "<!DOCTYPE a>",
                               "&#0;",
                               std::string(1, '\0'),
                               "ChannelId=3/>",
                               "SYSTEM_CONFIG_GET_MESSAGE 501",
                               "<TRANSPARENT_HEADER\nTrans_Type=\"TRANSPARENT_CHANNEL_MSG\"\n/>",
                               "<REQUEST_PARAM\n/>",
                               "<RESPONSE_PARAM\n/>",
                               "Unknown='a\"b'"};

struct Message
{
    std::vector<std::string> lines;
    std::string raw; // behind the text
};

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
        lines.push_back(text.substr(begin, end - begin));
        begin = end;
    }
    return lines;
}

size_t equalsOf(const std::string& line)
{
    const size_t equals = line.find("=\"");
    return line.empty() || line.front() == '<' ? std::string::npos : equals;
}

std::string valueOf(const std::string& line)
{
    const size_t equals = equalsOf(line);
    const size_t quote = line.rfind('"');
    return equals == std::string::npos ? "" : line.substr(equals + 2, quote - equals - 2);
}

void setValue(std::string& line, const std::string& value)
{
    const size_t equals = equalsOf(line);
    if (equals != std::string::npos)
        line = line.substr(0, equals) + "=\"" + value + "\"\n";
}

void repeat(std::vector<std::string>& lines, size_t first, size_t count, size_t times)
{
    count = std::min(count, lines.size() - first);
    size_t size = 0;
    for (const std::string& line : lines)
        size += line.size() + 1;
    times = std::min(times, kLongestMessage / size);
    std::vector<std::string> added;
    for (size_t i = 0; i < times; ++i)
        added.insert(added.end(), lines.begin() + static_cast<std::ptrdiff_t>(first),
                     lines.begin() + static_cast<std::ptrdiff_t>(first + count));
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(first), added.begin(), added.end());
}

// Attributes that stand together, from the given line on, in another order.
void shuffle(std::vector<std::string>& lines, size_t first, size_t seed)
{
    size_t end = first;
    while (end < lines.size() && equalsOf(lines[end]) != std::string::npos)
        ++end;
    for (size_t i = first; i + 1 < end; ++i) {
        seed = seed * 1103515245 + 12345;
        std::swap(lines[i], lines[i + (seed >> 16) % (end - i)]);
    }
}

void change(Message& message, Input& input)
{
    std::vector<std::string>& lines = message.lines;
    const uint8_t what = input.byte();
    const size_t a = input.word();
    const size_t b = input.word();
    if (lines.empty())
        return;
    const size_t at = a % lines.size();
    std::string& line = lines[at];
    std::string& other = lines[b % lines.size()];
    const auto place = lines.begin() + static_cast<std::ptrdiff_t>(at);
    switch (what % 16) {
    case 0:
        std::swap(line, other);
        break;
    case 1:
        lines.erase(place);
        break;
    case 2: {
        const std::string copy = other;
        lines.insert(place, copy);
        break;
    }
    case 3:
        setValue(line, kValues[b % std::size(kValues)]);
        break;
    case 4:
        setValue(line, std::string(b % 4096, 'x'));
        break;
    case 5:
        setValue(line, valueOf(other));
        break;
    case 6:
        setValue(line, valueOf(line) + kValues[b % std::size(kValues)]);
        break;
    case 7:
        if (equalsOf(other) != std::string::npos && equalsOf(line) != std::string::npos)
            line = other.substr(0, equalsOf(other)) + line.substr(equalsOf(line));
        break;
    case 8:
        repeat(lines, at, b % 32 + 1, b / 32 % 128 + 1);
        break;
    case 9:
        lines.resize(at);
        lines.push_back("</MESSAGE_BODY></XML_ZELMAR>");
        break;
    case 10:
        lines.insert(place, kPieces[b % std::size(kPieces)]);
        break;
    case 11:
        shuffle(lines, at, b);
        break;
    case 12:
        lines.erase(place, place + static_cast<std::ptrdiff_t>(std::min(b % 32, lines.size() - at)));
        break;
    case 13:
        if (!line.empty())
            line[b % line.size()] = static_cast<char>(b >> 8);
        break;
    case 14:
        // A little more or less than was announced, or anything.
        if (b % 2 && message.raw.size() > 4)
            message.raw.resize(message.raw.size() - 4 + b / 2 % 9, 'r');
        else
            message.raw.resize(b % 4096, 'r');
        break;
    default:
        setValue(line, input.bytes(b % 64));
        break;
    }
}

Supply supplyOf(uint8_t shortage)
{
    Supply supply;
    if (shortage >= 0xC0)
        (shortage % 2 ? supply.library : supply.reader) = (shortage & 0x3F) / 2;
    return supply;
}

template <class Record>
void requireWholeData(const void* record)
{
    const auto& data = *static_cast<const Record*>(record);
    const size_t behind = __sanitizer_get_allocated_size(record) - sizeof data;
    require((data.pData != nullptr) == (behind != 0), "a record has data or a null pointer");
    if (data.pData)
        require(data.pData == reinterpret_cast<const char*>(&data + 1) && data.DataLen > 0 &&
                    static_cast<size_t>(data.DataLen) == behind,
                "all the data that a record announces lies behind it");
}

void requireData(const ZEL_PROTOCOL_HEADER& header, const void* record)
{
    if (strcmp(header.Msg_type, "MEDIA_DATA_MESSAGE") != 0)
        return;
    switch (atoi(header.Msg_code)) {
    case 1:
        return requireWholeData<MEDIA_DATA_1_PARAM>(record);
    case 2:
        return requireWholeData<MEDIA_DATA_2_PARAM>(record);
    case 3:
        return requireWholeData<MEDIA_DATA_3_PARAM>(record);
    case 4:
        return requireWholeData<MEDIA_DATA_4_PARAM>(record);
    case 5:
        return requireWholeData<MEDIA_DATA_5_PARAM>(record);
    case 8:
        return requireWholeData<MEDIA_DATA_8_PARAM>(record);
    default:
        return;
    }
}

// Values are written as they are, so a quote in one, or what the reader made of a reference, changes the
// text.
bool isReadAsWritten(const std::string& payload)
{
    return payload.find_first_of("&'") == std::string::npos && payload.find("<![") == std::string::npos &&
           payload.find("ChannelId=3/") == std::string::npos;
}

std::string joined(const Message& message)
{
    std::string text;
    for (const std::string& line : message.lines)
        text += line;
    return text + message.raw;
}

// A text that is the whole body takes the line feeds around it along each time.
bool takesLineFeeds(const std::string& type)
{
    return type == "DBG_CMD_MESSAGE" || type == "SYSTEM_LOG_MESSAGE" || type == "SYSTEM_LOG_DATA";
}

// Written and read time and again, a message soon stays the same: what only one direction knows is lost at
// once, and what hangs on it the time after.
void requireSettled(Composed composed, const std::string& raw, int kind)
{
    constexpr int kMostRounds = 3;
    Composed last;
    for (int round = 0; round < kMostRounds; ++round) {
        const Analysed again = analyse(composed.text + raw, plainCodec());
        if (again.status != 0 || !again.record)
            return;
        last = std::move(composed);
        composed = compose(again.header, again.record.get(), kind, plainCodec(), kAmple);
        if (composed.bytes == last.bytes)
            return;
    }
    fprintf(stderr, "last:\n%s\nnow:\n%s\n", last.text.c_str(), composed.text.c_str());
    require(false, "a message that is read and written settles");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Input input{data, size};
    const test::CatalogueEntry& entry = entryOf(input.word());
    const int kind = input.byte() % 4;
    const uint8_t form = input.byte();
    const Codec codec = codecOf(form & 3);
    const Supply supply = supplyOf(input.byte());
    const int outLen = input.word() + 1;
    const size_t changes = input.byte() % 32;
    Input content{input.data + std::min(input.size, changes * 5),
                  input.size - std::min(input.size, changes * 5)};
    const Record record =
        makeRecord(entry, static_cast<Fill>(form >> 4 & 3), content.rest(), (form & 0x08) == 0);

    const Composed valid = compose(test::catalogueHeader(entry), record.get(), kind, plainCodec(), kAmple);
    if (valid.status < 0)
        return 0;
    Message message{linesOf(valid.text), ""};
    if (!isBare(test::catalogueHeader(entry)) && valid.extra > 4 && valid.extra < kLongestMessage)
        message.raw = std::string(4, '\0') + std::string(valid.extra - 4, 'r');
    for (size_t i = 0; i < changes; ++i)
        change(message, input);

    const std::string payload = joined(message);
    Analysed analysed = analyse(enciphered(codec, payload), codec, supply);
    if (analysed.status > 0) {
        ZEL_PROTOCOL_HEADER header{};
        strcpy(header.Msg_type, "TRANSPARENT_CHANNEL_MSG");
        compose(header, analysed.record.get(), kind, codec, outLen);
        return 0;
    }
    if (!analysed.record)
        return 0;
    requireData(analysed.header, analysed.record.get());
    compose(analysed.header, analysed.record.get(), kind, codec, outLen);
    const Composed composed = compose(analysed.header, analysed.record.get(), kind, plainCodec(), kAmple);
    if (composed.status > 0 && isReadAsWritten(payload) && !takesLineFeeds(analysed.header.Msg_type))
        requireSettled(composed, message.raw, kind);
    return 0;
}
