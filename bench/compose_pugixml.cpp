// A pugixml tree, saved without indentation into the buffer.
#include <cstdio>
#include <type_traits>

#include <pugixml.hpp>

#include "compose_peers.h"
#include "frame.h"

namespace bench {

namespace {

struct TreeSide
{
    static constexpr bool kReads = false;

    pugi::xml_node node;

    template <class Name, class Number>
    void number(Name, Number value)
    {
        if constexpr (sizeof(Number) == 8)
            attribute<Name>().set_value(static_cast<unsigned long long>(value));
        else if constexpr (std::is_unsigned_v<Number>)
            attribute<Name>().set_value(static_cast<unsigned int>(value));
        else
            attribute<Name>().set_value(value);
    }
    template <class Name, class Number>
    void numberIfSet(Name name, Number value)
    {
        if (value != static_cast<Number>(-1))
            number(name, value);
    }
    template <class Name>
    void numberWithBlank(Name name, int32_t value)
    {
        number(name, value);
    }
    template <class Name>
    void bareNumber(Name, int32_t value)
    {
        char text[64];
        snprintf(text, sizeof text, "%s=\"%d\"\n", Name::get().data(), value);
        node.append_child(pugi::node_pcdata).set_value(text);
    }
    template <class Name>
    void real(Name, float value)
    {
        attribute<Name>().set_value(value);
    }
    template <class Name, size_t N>
    void text(Name, const char (&value)[N])
    {
        attribute<Name>().set_value(value);
    }
    template <class Name, size_t N>
    void textIfSet(Name name, const char (&value)[N])
    {
        if (value[0])
            text(name, value);
    }
    template <class Name>
    void time(Name, const int32_t (&value)[3])
    {
        print<Name>("%02d:%02d:%02d", value[0], value[1], value[2]);
    }
    template <class Name>
    void triple(Name, const int32_t (&value)[3])
    {
        print<Name>("%d,%d,%d", value[0], value[1], value[2]);
    }
    template <class Name>
    void range(Name, const int32_t (&value)[2])
    {
        print<Name>("%d,%d", value[0], value[1]);
    }
    template <class Name>
    void resolution(Name, const int32_t (&value)[2])
    {
        print<Name>("%d*%d", value[0], value[1]);
    }
    template <class Name>
    void periods(Name, const TIME_PERIOD* list, size_t count)
    {
        char text[4 * 80];
        size_t length = 0;
        for (size_t i = 0; i < count; ++i)
            length += static_cast<size_t>(snprintf(text + length, sizeof text - length,
                                                   "[%02d:%02d:%02d-%02d:%02d:%02d],", list[i].StartHour,
                                                   list[i].StartMinute, list[i].StartSecond, list[i].EndHour,
                                                   list[i].EndMinute, list[i].EndSecond));
        attribute<Name>().set_value(text, length);
    }
    template <class Name>
    void coordinates(Name, const COORDINATE* list, size_t count)
    {
        char text[8 * 32];
        size_t length = 0;
        for (size_t i = 0; i < count; ++i)
            length += static_cast<size_t>(
                snprintf(text + length, sizeof text - length, "[%d,%d],", list[i].X, list[i].Y));
        attribute<Name>().set_value(text, length);
    }
    template <size_t N>
    void vendor(const char (&value)[N])
    {
        node.append_child("VENDOR_PARAM").append_attribute("VendorId").set_value(value);
    }

    template <class Name, class Fill>
    void element(Name, Fill fill)
    {
        TreeSide child{node.append_child(Name::get().data())};
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
    template <class Name, class Rows, class Fill>
    void rows(Name name, const Rows& rows, Fill fill)
    {
        for (const auto& row : rows)
            element(name, [&](auto& side) { fill(side, row); });
    }

private:
    template <class Name>
    pugi::xml_attribute attribute()
    {
        return node.append_attribute(Name::get().data());
    }
    template <class Name, class... Values>
    void print(const char* format, Values... values)
    {
        char text[64];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
        snprintf(text, sizeof text, format, values...);
#pragma GCC diagnostic pop
        attribute<Name>().set_value(text);
    }
};

// Takes the saved text into a buffer of fixed size.
struct BufferWriter : pugi::xml_writer
{
    BufferWriter(char* buffer, size_t size) : at(buffer), left(size) {}
    void write(const void* data, size_t size) override
    {
        if (size > left) {
            full = true;
            return;
        }
        memcpy(at, data, size);
        at += size;
        left -= size;
    }

    char* at;
    size_t left;
    bool full = false;
};

} // namespace

int composeWithPugixml(const Sample& sample, char* out, size_t size)
{
    if (size <= kHeadSize)
        return -1;
    pugi::xml_document document;
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version").set_value("1.0");
    declaration.append_attribute("encoding").set_value("GB2312");
    pugi::xml_node root = document.append_child("XML_ZELMAR");
    TreeSide header{root.append_child("MESSAGE_HEADER")};
    headerList(header, sample.header);
    if (sample.id == MessageId::kHeartbeat)
        heartbeatList(header, *static_cast<const ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM*>(sample.record.get()));
    TreeSide body{root.append_child("MESSAGE_BODY")};
    composeBody(sample, body);

    BufferWriter writer(out + kHeadSize, size - kHeadSize);
    document.save(writer, "", pugi::format_raw, pugi::encoding_utf8);
    return writer.full ? -1 : finishFrame(sample, out, writer.at);
}

} // namespace bench
