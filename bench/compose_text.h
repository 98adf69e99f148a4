// What the peers that print text have in common. A Printer appends to a buffer of fixed size:
//
//   literal<text>()            constant text, copied, not printed
//   print<format>(values...)   one call of its formatting function
//
// and brings the formats in its own language.
#ifndef ZEL_BENCH_COMPOSE_TEXT_H
#define ZEL_BENCH_COMPOSE_TEXT_H

#include <array>
#include <cstring>

#include "frame.h"
#include "lists.h"
#include "samples.h"

namespace bench {

// Left, a name and right, joined by the compiler, with a terminator.
template <const std::string_view& left, class Name, const std::string_view& right>
struct Joined
{
    static constexpr auto join()
    {
        std::array<char, left.size() + Name::get().size() + right.size() + 1> all{};
        size_t at = 0;
        for (const std::string_view part : {left, Name::get(), right})
            for (const char c : part)
                all[at++] = c;
        return all;
    }
    static constexpr auto kBytes = join();
    static constexpr std::string_view kText{kBytes.data(), kBytes.size() - 1};
};

struct NoName
{
    static constexpr std::string_view get()
    {
        return "";
    }
};

inline constexpr std::string_view kNothing = "";
inline constexpr std::string_view kOpening = "<";
inline constexpr std::string_view kClosing = "</";
inline constexpr std::string_view kLineFeed = "\n";
inline constexpr std::string_view kTagEnd = ">\n";
inline constexpr std::string_view kProlog = "<?xml version=\"1.0\" encoding=\"GB2312\" ?>\n<XML_ZELMAR>\n";
inline constexpr std::string_view kElementEnd = "/>\n";
inline constexpr std::string_view kEpilog = "</MESSAGE_BODY>\n</XML_ZELMAR>";
inline constexpr std::string_view kListStart = "=\"";
inline constexpr std::string_view kListEnd = "\"\n";

template <class Printer>
struct TextSide
{
    static constexpr bool kReads = false;
    using Format = typename Printer::Format;

    Printer out;

    template <class Name, class Number>
    void number(Name, Number value)
    {
        out.template print<Joined<kNothing, Name, Format::template number<Number>()>>(value);
    }
    template <class Name, class Number>
    void numberIfSet(Name name, Number value)
    {
        if (value != static_cast<Number>(-1))
            number(name, value);
    }
    template <class Name>
    void numberWithBlank(Name, int32_t value)
    {
        out.template print<Joined<kNothing, Name, Format::kNumberAfterBlank>>(value);
    }
    template <class Name>
    void bareNumber(Name name, int32_t value)
    {
        number(name, value);
    }
    template <class Name>
    void real(Name, float value)
    {
        out.template print<Joined<kNothing, Name, Format::kReal>>(static_cast<double>(value));
    }
    template <class Name, size_t N>
    void text(Name, const char (&value)[N])
    {
        out.template printText<Joined<kNothing, Name, Format::kText>>(value);
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
        out.template print<Joined<kNothing, Name, Format::kTime>>(value[0], value[1], value[2]);
    }
    template <class Name>
    void triple(Name, const int32_t (&value)[3])
    {
        out.template print<Joined<kNothing, Name, Format::kTriple>>(value[0], value[1], value[2]);
    }
    template <class Name>
    void range(Name, const int32_t (&value)[2])
    {
        out.template print<Joined<kNothing, Name, Format::kRange>>(value[0], value[1]);
    }
    template <class Name>
    void resolution(Name, const int32_t (&value)[2])
    {
        out.template print<Joined<kNothing, Name, Format::kResolution>>(value[0], value[1]);
    }
    template <class Name>
    void periods(Name, const TIME_PERIOD* list, size_t count)
    {
        out.template literal<Joined<kNothing, Name, kListStart>>();
        for (size_t i = 0; i < count; ++i)
            out.template print<Joined<kNothing, NoName, Format::kPeriod>>(
                list[i].StartHour, list[i].StartMinute, list[i].StartSecond, list[i].EndHour,
                list[i].EndMinute, list[i].EndSecond);
        out.template literal<Joined<kNothing, NoName, kListEnd>>();
    }
    template <class Name>
    void coordinates(Name, const COORDINATE* list, size_t count)
    {
        out.template literal<Joined<kNothing, Name, kListStart>>();
        for (size_t i = 0; i < count; ++i)
            out.template print<Joined<kNothing, NoName, Format::kCoordinate>>(list[i].X, list[i].Y);
        out.template literal<Joined<kNothing, NoName, kListEnd>>();
    }
    template <size_t N>
    void vendor(const char (&value)[N])
    {
        out.template printText<Joined<kNothing, NoName, Format::kVendor>>(value);
    }

    template <class Name, class Fill>
    void element(Name, Fill fill)
    {
        out.template literal<Joined<kOpening, Name, kLineFeed>>();
        fill(*this);
        out.literal(kElementEnd);
    }
    template <class Name, class Fill>
    void elementClosedAtQuote(Name, Fill fill)
    {
        out.template literal<Joined<kOpening, Name, kLineFeed>>();
        fill(*this);
        out.takeBack();
        out.literal(kElementEnd);
    }
    // Closed by > behind the last attribute's quote, and by a tag of its own.
    template <class Name, class Fill>
    void openElement(Name, Fill fill)
    {
        out.template literal<Joined<kOpening, Name, kLineFeed>>();
        fill(*this);
        out.takeBack();
        out.literal(kTagEnd);
        out.template literal<Joined<kClosing, Name, kTagEnd>>();
    }
    template <class Name, class Fill>
    void container(Name, Fill fill)
    {
        out.template literal<Joined<kOpening, Name, kTagEnd>>();
        fill(*this);
        out.template literal<Joined<kClosing, Name, kTagEnd>>();
    }
    template <class Name, class Attributes, class Fill>
    void containerWithAttributes(Name, Attributes attributes, Fill fill)
    {
        out.template literal<Joined<kOpening, Name, kLineFeed>>();
        attributes(*this);
        out.literal(kTagEnd);
        fill(*this);
        out.template literal<Joined<kClosing, Name, kTagEnd>>();
    }
    template <class Name, class Rows, class Fill>
    void rows(Name name, const Rows& rows, Fill fill)
    {
        for (const auto& row : rows)
            element(name, [&](auto& side) { fill(side, row); });
    }
};

template <class Printer>
int composeText(const Sample& sample, char* out, size_t size)
{
    if (size <= kHeadSize)
        return -1;
    TextSide<Printer> side{Printer(out + kHeadSize, size - kHeadSize)};
    Printer& printer = side.out;
    printer.literal(kProlog);
    side.element(NAMED("MESSAGE_HEADER"), [&](auto& header) {
        headerList(header, sample.header);
        const bool more = sample.header.Msg_uuid[0] || sample.header.Msg_chn[0];
        if (sample.id == MessageId::kHeartbeat) {
            heartbeatList(header,
                          *static_cast<const ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM*>(sample.record.get()));
            printer.literal(kLineFeed);
        } else if (more) {
            printer.literal(kLineFeed);
        }
    });
    printer.literal("<MESSAGE_BODY>\n");
    composeBody(sample, side);
    if (sample.id != MessageId::kHeartbeat)
        printer.literal(kLineFeed);
    printer.literal(kEpilog);
    if (!printer.good())
        return -1;
    return finishFrame(sample, out, printer.at);
}

} // namespace bench

#endif
