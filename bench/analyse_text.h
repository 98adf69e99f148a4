// What the analysing peers have in common. A Node is an element in the terms of one XML library:
//
//   explicit operator bool, child(name), next(name)
//   value(name)          the attribute's text, or null
//   read(name, field)    the attribute as a number; leaves the field as it was if there is none
//
// and a Document has parse(text, size) and root().
#ifndef ZEL_BENCH_ANALYSE_TEXT_H
#define ZEL_BENCH_ANALYSE_TEXT_H

#include <cstdlib>
#include <cstring>

#include "analyse_peers.h"
#include "lists.h"
#include "samples.h"

namespace bench {

inline void copyText(char* field, size_t size, const char* value)
{
    const size_t length = strnlen(value, size - 1);
    memcpy(field, value, length);
    field[length] = '\0';
}

// Numbers with one character between them. Returns where it stopped.
inline const char* scanNumbers(const char* text, int32_t* numbers, size_t count)
{
    for (size_t i = 0; i < count; ++i) {
        char* end;
        const long number = strtol(text, &end, 10);
        if (end == text)
            break;
        numbers[i] = static_cast<int32_t>(number);
        text = end;
        if (i + 1 < count && *text)
            ++text;
    }
    return text;
}

template <class Node>
struct ReadSide
{
    static constexpr bool kReads = true;

    Node node;

    template <class Name, class Number>
    void number(Name, Number& field)
    {
        node.read(Name::get(), field);
    }
    template <class Name, class Number>
    void numberIfSet(Name name, Number& field)
    {
        number(name, field);
    }
    template <class Name, class Number>
    void numberWithBlank(Name name, Number& field)
    {
        number(name, field);
    }
    template <class Name>
    void real(Name, float& field)
    {
        node.read(Name::get(), field);
    }
    template <class Name, size_t N>
    void text(Name, char (&field)[N])
    {
        if (const auto value = node.value(Name::get()))
            copyText(field, N, value);
    }
    template <class Name, size_t N>
    void textIfSet(Name name, char (&field)[N])
    {
        text(name, field);
    }
    template <class Name>
    void time(Name name, int32_t (&field)[3])
    {
        numbers(name, field);
    }
    template <class Name>
    void triple(Name name, int32_t (&field)[3])
    {
        numbers(name, field);
    }
    template <class Name>
    void range(Name name, int32_t (&field)[2])
    {
        numbers(name, field);
    }
    template <class Name>
    void resolution(Name name, int32_t (&field)[2])
    {
        numbers(name, field);
    }
    template <class Name>
    void periods(Name, TIME_PERIOD* list, size_t count)
    {
        const auto value = node.value(Name::get());
        const char* text = value;
        for (size_t i = 0; i < count && text && (text = strchr(text, '[')); ++i) {
            int32_t part[6] = {};
            text = scanNumbers(text + 1, part, 6);
            list[i] = {part[0], part[1], part[2], part[3], part[4], part[5]};
        }
    }
    template <class Name>
    void coordinates(Name, COORDINATE* list, size_t count)
    {
        const auto value = node.value(Name::get());
        const char* text = value;
        for (size_t i = 0; i < count && text && (text = strchr(text, '[')); ++i) {
            int32_t part[2] = {};
            text = scanNumbers(text + 1, part, 2);
            list[i] = {part[0], part[1]};
        }
    }

    template <class Name, class Fill>
    void element(Name, Fill fill)
    {
        if (ReadSide child{node.child(Name::get())}; child.node)
            fill(child);
    }
    template <class Name, class Fill>
    void elementClosedAtQuote(Name name, Fill fill)
    {
        element(name, fill);
    }
    template <class Name, class Fill>
    void openElement(Name name, Fill fill)
    {
        element(name, fill);
    }
    template <class Name, class Fill>
    void container(Name name, Fill fill)
    {
        element(name, fill);
    }
    template <class Name, class Attributes, class Fill>
    void containerWithAttributes(Name name, Attributes attributes, Fill fill)
    {
        element(name, [&](auto& side) {
            attributes(side);
            fill(side);
        });
    }
    template <class Name, class Row, size_t N, class Fill>
    void rows(Name, Row (&array)[N], Fill fill)
    {
        size_t count = 0;
        for (ReadSide row{node.child(Name::get())}; row.node && count < N;
             row.node = row.node.next(Name::get()))
            fill(row, array[count++]);
    }

private:
    template <class Name, size_t N>
    void numbers(Name, int32_t (&field)[N])
    {
        if (const auto text = node.value(Name::get()))
            scanNumbers(text, field, N);
    }
};

template <class Record>
Record* newRecord(int (*init)(Record*), size_t tail = 0)
{
    void* block = malloc(sizeof(Record) + tail);
    if (!block)
        return nullptr;
    if (fillNewBlocks)
        memset(block, 0xFF, sizeof(Record) + tail);
    auto* record = static_cast<Record*>(block);
    init(record);
    return record;
}

template <class Node, class Record, class Fill>
int giveRecord(Node node, int (*init)(Record*), void** result, Fill fill)
{
    Record* record = newRecord(init);
    if (!record)
        return -1;
    ReadSide<Node> side{node};
    fill(side, *record);
    *result = record;
    return 0;
}

// `behind` is what was received behind the closing tag.
template <class Node>
int giveAlarm(Node body, std::string_view behind, void** result)
{
    const Node param = body.child("ALARM_REPORT_PARAM");
    const Node item = param ? param.child("ALARM_ITEM") : Node();
    if (!item)
        return -1;
    const bool hasFace = static_cast<bool>(item.child("HumanFaceInfo"));
    auto* alarm = newRecord(ALARM_REPORT_CMD_RPEORT_ALARM_PARAM_init,
                            hasFace ? sizeof(ALARM_REPORT_HUMANFACE_INFO) : 0);
    if (!alarm)
        return -1;
    auto* face = reinterpret_cast<ALARM_REPORT_HUMANFACE_INFO*>(alarm + 1);
    if (hasFace) {
        memset(face, 0, sizeof *face);
        alarm->iExDataType = 38;
        alarm->pExData = face;
    }
    ReadSide<Node> side{body};
    alarmList(
        side, *alarm, [&]() -> auto& { return *face; });
    if (hasFace) {
        const size_t block = face->AlgVer == 1 ? kShortFaceBlock : kFaceBlock;
        if (behind.size() < 4 + block) {
            free(alarm);
            return -1;
        }
        memcpy(face->aucFeatureData, behind.data() + 4, block);
    }
    *result = alarm;
    return 0;
}

template <class Document>
int analyseText(char* payload, size_t size, ZEL_PROTOCOL_HEADER& header, void** result)
{
    static constexpr std::string_view kClosingTag = "</XML_ZELMAR>";
    const void* tag = memmem(payload, size, kClosingTag.data(), kClosingTag.size());
    if (!tag)
        return -1;
    const size_t length = static_cast<size_t>(static_cast<const char*>(tag) - payload) + kClosingTag.size();
    if (length < size)
        payload[length] = '\0';

    Document document;
    if (!document.parse(payload, length))
        return -1;
    const auto root = document.root();
    using Node = std::decay_t<decltype(root)>;
    const Node head = root ? root.child("MESSAGE_HEADER") : Node();
    if (!head)
        return -1;
    ReadSide<Node> headSide{head};
    headerList(headSide, header);

    const std::string_view type = header.Msg_type;
    const std::string_view code = header.Msg_code;
    if (type == "ZEL_HEARTBEAT_MESSAGE" && code == "CMD_HEARTBEAT")
        return giveRecord(head, ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init, result,
                          [](auto& side, auto& record) { heartbeatList(side, record); });
    const Node body = root.child("MESSAGE_BODY");
    if (!body)
        return -1;
    if (type == "USER_AUTH_MESSAGE")
        return giveRecord(body, USER_AUTH_CMD_USER_AUTH_PARAM_init, result,
                          [](auto& side, auto& record) { loginList(side, record); });
    if (type == "ALARM_REPORT_MESSAGE")
        return giveAlarm(body, {payload + length, size - length}, result);
    if (type == "SYSTEM_CONFIG_GET_MESSAGE") {
        if (code == "500")
            return giveRecord(body, SYSTEM_CONFIG_GET_500_PARAM_init, result,
                              [](auto& side, auto& record) { mediaList(side, record); });
        if (code == "1402")
            return giveRecord(body, SYSTEM_CONFIG_GET_1402_PARAM_init, result,
                              [](auto& side, auto& record) { eventList(side, record); });
        if (code == "3803")
            return giveRecord(body, SYSTEM_CONFIG_GET_3803_PARAM_init, result,
                              [](auto& side, auto& record) { channelsList(side, record); });
    }
    return -1;
}

// For libraries that leave the conversion to the user.
inline void convert(const char* text, int32_t& field)
{
    field = static_cast<int32_t>(strtol(text, nullptr, 10));
}
inline void convert(const char* text, uint32_t& field)
{
    field = static_cast<uint32_t>(strtoul(text, nullptr, 10));
}
inline void convert(const char* text, uint8_t& field)
{
    field = static_cast<uint8_t>(strtoul(text, nullptr, 10));
}
inline void convert(const char* text, uint64_t& field)
{
    field = strtoull(text, nullptr, 10);
}
inline void convert(const char* text, float& field)
{
    field = strtof(text, nullptr);
}

} // namespace bench

#endif
