#include "inspect/capture.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <exception>
#include <list>
#include <map>
#include <netinet/in.h>
#include <pcap/pcap.h>
#include <stdexcept>
#include <string>
#include <tins/pktap.h>
#include <tins/tins.h>
#include <unordered_map>
#include <utility>

namespace inspect {

namespace {

constexpr std::size_t kLongest = 16u << 20; // bytes of a payload
constexpr std::size_t kSegmentCost = 96;    // bytes beside those of a segment
constexpr std::int32_t kFarAway = 1 << 28;  // no window is as wide

struct End
{
    std::array<std::uint8_t, 16> address{};
    std::uint16_t port = 0;
    std::uint16_t isV6 = 0;
};

// One direction of a connection. All of its bytes count.
struct Route
{
    End from;
    End to;

    std::string_view bytes() const
    {
        return {reinterpret_cast<const char*>(this), sizeof *this};
    }
    bool operator==(const Route& other) const
    {
        return bytes() == other.bytes();
    }
};
static_assert(sizeof(Route) == 40, "there are no bytes between");

struct HashRoute
{
    std::size_t operator()(const Route& route) const
    {
        return std::hash<std::string_view>()(route.bytes());
    }
};

std::string textOf(const End& end)
{
    if (end.isV6)
        return "[" + Tins::IPv6Address(end.address.data()).to_string() + "]:" + std::to_string(end.port);
    std::uint32_t address = 0;
    std::memcpy(&address, end.address.data(), sizeof address);
    return Tins::IPv4Address(address).to_string() + ":" + std::to_string(end.port);
}

End endOf(const Tins::IPv4Address& address, std::uint16_t port)
{
    End end;
    const std::uint32_t number = address;
    std::memcpy(end.address.data(), &number, sizeof number);
    end.port = port;
    return end;
}

End endOf(const Tins::IPv6Address& address, std::uint16_t port)
{
    End end;
    std::copy(address.begin(), address.end(), end.address.begin());
    end.port = port;
    end.isV6 = 1;
    return end;
}

struct Packet
{
    double time = 0;
    Route route;
    bool isTcp = false;
    std::uint32_t sequence = 0;
    unsigned flags = 0; // of TCP
    std::string_view data;
    std::size_t missing = 0; // bytes behind the data
};

std::uint32_t numberAt(std::string_view bytes, std::size_t at, std::size_t size)
{
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size; ++i)
        number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
    return number;
}

// Where IPv4 starts in the packets that most captures are made of; the end for others.
std::size_t plainStart(int link, std::string_view packet)
{
    constexpr std::uint32_t kIp = 0x0800;
    const auto behind = [&](std::size_t type) {
        return packet.size() > type + 2 && numberAt(packet, type, 2) == kIp ? type + 2 : packet.size();
    };
    switch (link) {
    case DLT_EN10MB:
        return behind(12);
    case DLT_LINUX_SLL:
        return behind(14);
    case DLT_RAW:
        return 0;
    default:
        return packet.size();
    }
}

// The packets that most captures are made of, without a single allocation: IPv4 without options or fragments.
bool readPlain(int link, std::string_view bytes, Packet& packet)
{
    constexpr std::size_t kIpHead = 20;
    constexpr std::size_t kTcpHead = 20;
    constexpr std::size_t kUdpHead = 8;
    std::string_view ip = bytes.substr(plainStart(link, bytes));
    if (ip.size() < kIpHead + kUdpHead || ip[0] != 0x45 || (numberAt(ip, 6, 2) & 0xbfff) != 0)
        return false;
    const std::size_t size = numberAt(ip, 2, 2);
    packet.isTcp = ip[9] == IPPROTO_TCP;
    if (size < kIpHead + (packet.isTcp ? kTcpHead : kUdpHead) || (!packet.isTcp && ip[9] != IPPROTO_UDP))
        return false;
    packet.missing = size - std::min(size, ip.size());
    ip = ip.substr(0, size);
    const std::string_view transport = ip.substr(kIpHead);
    std::size_t head = kUdpHead;
    if (packet.isTcp) {
        if (transport.size() < kTcpHead)
            return false;
        head = numberAt(transport, 12, 1) >> 4 << 2;
        packet.sequence = numberAt(transport, 4, 4);
        packet.flags = numberAt(transport, 13, 1);
    }
    if (head < kUdpHead || transport.size() < head || (packet.isTcp && head < kTcpHead))
        return false;
    packet.data = transport.substr(head);
    ip.copy(reinterpret_cast<char*>(packet.route.from.address.data()), 4, 12);
    ip.copy(reinterpret_cast<char*>(packet.route.to.address.data()), 4, 16);
    packet.route.from.port = static_cast<std::uint16_t>(numberAt(transport, 0, 2));
    packet.route.to.port = static_cast<std::uint16_t>(numberAt(transport, 2, 2));
    return true;
}

// What libtins makes of a packet. The head of Linux' newer cooked form it doesn't know.
std::unique_ptr<Tins::PDU> parse(int link, std::string_view packet)
{
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(packet.data());
    const auto size = static_cast<std::uint32_t>(packet.size());
    const auto number = [&](std::uint32_t at) { return at + 1 < size ? bytes[at] << 8 | bytes[at + 1] : 0; };
    const auto ip = [&](std::uint32_t at) -> std::unique_ptr<Tins::PDU> {
        if (at < size && bytes[at] >> 4 == 4)
            return std::make_unique<Tins::IP>(bytes + at, size - at);
        if (at < size && bytes[at] >> 4 == 6)
            return std::make_unique<Tins::IPv6>(bytes + at, size - at);
        return nullptr;
    };
    constexpr int kLongestDot3 = 1500;
    constexpr std::uint32_t kCookedSize = 20;
    constexpr int kVlan = 0x8100;
    switch (link) {
    case DLT_EN10MB:
        if (number(12) <= kLongestDot3)
            return std::make_unique<Tins::Dot3>(bytes, size);
        return std::make_unique<Tins::EthernetII>(bytes, size);
    case DLT_IEEE802_11_RADIO:
        return std::make_unique<Tins::RadioTap>(bytes, size);
    case DLT_IEEE802_11:
        return std::unique_ptr<Tins::PDU>(Tins::Dot11::from_bytes(bytes, size));
    case DLT_LINUX_SLL:
        return std::make_unique<Tins::SLL>(bytes, size);
    case DLT_LINUX_SLL2:
        return ip(number(0) == kVlan ? kCookedSize + 4 : kCookedSize);
    case DLT_PPI:
        return std::make_unique<Tins::PPI>(bytes, size);
    case DLT_PKTAP:
        return std::make_unique<Tins::PKTAP>(bytes, size);
    case DLT_NULL:
    case DLT_LOOP:
        return ip(4); // the family's number, in one order or another
    case DLT_RAW:
    case DLT_IPV4:
    case DLT_IPV6:
        return ip(0);
    default:
        return nullptr;
    }
}

} // namespace

class Capture::Flows
{
public:
    Flows(Receive receive, const CaptureLimits& limits) : m_receive(std::move(receive)), m_limits(limits) {}

    void take(double time, int link, std::string_view bytes, std::size_t missing)
    {
        Packet plain;
        plain.time = time;
        if (readPlain(link, bytes, plain)) {
            takeTransport(plain);
            return;
        }
        const std::unique_ptr<Tins::PDU> packet = parse(link, bytes);
        if (!packet)
            return;
        // The innermost of several.
        Tins::IP* v4 = nullptr;
        Tins::IPv6* v6 = nullptr;
        for (Tins::PDU* pdu = packet.get(); pdu; pdu = pdu->inner_pdu()) {
            switch (pdu->pdu_type()) {
            case Tins::PDU::IP:
                v4 = static_cast<Tins::IP*>(pdu);
                v6 = nullptr;
                if (v4->is_fragmented() && !isWhole(*v4))
                    return;
                break;
            case Tins::PDU::IPv6:
                v6 = static_cast<Tins::IPv6*>(pdu);
                v4 = nullptr;
                break;
            case Tins::PDU::TCP:
            case Tins::PDU::UDP:
                if (v4 || v6)
                    takeTransport(packetOf(time, v4, v6, *pdu, missing));
                return;
            default:
                break;
            }
        }
    }

    void end()
    {
        while (!m_flows.empty())
            drop();
        m_reassembler.clear_streams();
        m_fragments = 0;
    }

    std::size_t held() const
    {
        return m_held;
    }

    std::size_t count() const
    {
        return m_flows.size();
    }

private:
    struct Flow
    {
        Flow(const Route& its, const Receive& receive)
            : route(its), from(textOf(its.from)), to(textOf(its.to)),
              splitter(makeSplitter(receive, Gaps::kAfterFirst))
        {}

        FrameSplitter makeSplitter(const Receive& receive, Gaps gaps) const
        {
            FrameSplitter made([&receive](const Found& found) { receive(found); }, kLongest, gaps);
            made.context.from = from;
            made.context.to = to;
            return made;
        }

        Route route;
        std::string from, to;
        FrameSplitter splitter;
        bool isAnchored = false;
        bool isClosed = false;
        std::uint32_t next = 0;     // sequence number of the byte that is due
        std::uint64_t position = 0; // the same as a count of bytes
        std::map<std::uint64_t, std::string> waiting;
        std::size_t waitingBytes = 0;
        double holeSince = 0;
        bool hasEnd = false; // where it is, is known
        std::uint64_t endAt = 0;
        std::uint32_t strayNext = 0;
        double last = 0;
        std::size_t held = 0;
    };
    using FlowList = std::list<Flow>;

    // Whether a fragment was the last that was missing of its packet, which it is then.
    bool isWhole(Tins::IP& fragment)
    {
        const std::size_t size = fragment.size();
        if (m_reassembler.process(fragment) == Tins::IPv4Reassembler::REASSEMBLED) {
            m_fragments -= std::min<std::size_t>(m_fragments, fragment.size());
            return true;
        }
        m_fragments += size + kSegmentCost;
        if (m_fragments > m_limits.fragments) {
            m_reassembler.clear_streams();
            m_fragments = 0;
        }
        return false;
    }

    static Packet packetOf(double time, const Tins::IP* v4, const Tins::IPv6* v6, const Tins::PDU& pdu,
                           std::size_t missing)
    {
        Packet packet;
        packet.time = time;
        packet.missing = missing;
        packet.isTcp = pdu.pdu_type() == Tins::PDU::TCP;
        std::uint16_t fromPort = 0;
        std::uint16_t toPort = 0;
        if (packet.isTcp) {
            const auto& tcp = static_cast<const Tins::TCP&>(pdu);
            packet.sequence = tcp.seq();
            packet.flags = tcp.flags();
            fromPort = tcp.sport();
            toPort = tcp.dport();
        } else {
            const auto& udp = static_cast<const Tins::UDP&>(pdu);
            fromPort = udp.sport();
            toPort = udp.dport();
        }
        if (v4)
            packet.route = {endOf(v4->src_addr(), fromPort), endOf(v4->dst_addr(), toPort)};
        else
            packet.route = {endOf(v6->src_addr(), fromPort), endOf(v6->dst_addr(), toPort)};
        if (const Tins::PDU* const inner = pdu.inner_pdu(); inner && inner->pdu_type() == Tins::PDU::RAW) {
            const auto& payload = static_cast<const Tins::RawPDU*>(inner)->payload();
            packet.data = {reinterpret_cast<const char*>(payload.data()), payload.size()};
        }
        return packet;
    }

    void takeTransport(const Packet& packet)
    {
        if (packet.isTcp)
            takeSegment(packet);
        else
            takeDatagram(packet);
    }

    void takeDatagram(const Packet& packet)
    {
        // Most are of other protocols; ours have nothing before the message.
        constexpr std::array<std::string_view, 4> kBeginnings = {"\x58\x91\x58\x51", "\x57\x81\x59\x52",
                                                                 "<?xml", "<XML_ZELMAR"};
        const bool isOurs =
            std::any_of(kBeginnings.begin(), kBeginnings.end(), [&](std::string_view beginning) {
                return packet.data.substr(0, beginning.size()) == beginning;
            });
        if (!isOurs)
            return;
        const std::string from = textOf(packet.route.from);
        const std::string to = textOf(packet.route.to);
        FrameSplitter splitter([this](const Found& found) { m_receive(found); }, kLongest, Gaps::kOnceFound);
        splitter.context.time = packet.time;
        splitter.context.from = from;
        splitter.context.to = to;
        splitter.take(packet.data);
        if (packet.missing > 0)
            splitter.lose(packet.missing);
        splitter.end();
    }

    // The flow of a route, as the last one used.
    Flow& flowOf(const Packet& packet)
    {
        const auto known = m_index.find(packet.route);
        if (known != m_index.end()) {
            m_flows.splice(m_flows.end(), m_flows, known->second);
            return m_flows.back();
        }
        if (m_flows.size() >= m_limits.flows)
            drop();
        m_flows.emplace_back(packet.route, m_receive);
        m_index.emplace(packet.route, std::prev(m_flows.end()));
        return m_flows.back();
    }

    void takeSegment(const Packet& packet)
    {
        Flow& flow = flowOf(packet);
        flow.last = packet.time;
        flow.splitter.context.time = packet.time;
        follow(flow, packet);
        count(flow);
        while (!m_flows.empty() &&
               (m_held > m_limits.bytes || m_flows.front().last + m_limits.idle < packet.time))
            drop();
    }

    void follow(Flow& flow, const Packet& packet)
    {
        const bool isFirst = (packet.flags & Tins::TCP::SYN) != 0;
        const std::uint32_t sequence = packet.sequence + (isFirst ? 1 : 0);
        const bool isKnown = flow.isAnchored && !flow.isClosed &&
                             flow.next - static_cast<std::uint32_t>(flow.position) == sequence;
        if (isFirst && !isKnown)
            begin(flow, sequence);
        if (flow.isClosed)
            return;
        if (!flow.isAnchored) {
            flow.isAnchored = true;
            flow.next = sequence;
        }
        const std::size_t size = packet.data.size() + packet.missing;
        if (isStray(flow, sequence, size))
            return;
        const auto distance = static_cast<std::int32_t>(sequence - flow.next);
        const std::uint64_t at =
            flow.position + static_cast<std::uint64_t>(static_cast<std::int64_t>(distance));
        if (size > 0)
            takeData(flow, distance, packet);
        if ((packet.flags & Tins::TCP::FIN) != 0) {
            flow.hasEnd = true;
            flow.endAt = at + size;
        }
        if ((packet.flags & Tins::TCP::RST) != 0 || (flow.hasEnd && flow.position >= flow.endAt))
            finish(flow);
    }

    void begin(Flow& flow, std::uint32_t sequence)
    {
        finish(flow);
        const double time = flow.splitter.context.time;
        flow.splitter = flow.makeSplitter(m_receive, Gaps::kOnceFound);
        flow.splitter.context.time = time;
        flow.isAnchored = true;
        flow.isClosed = false;
        flow.hasEnd = false;
        flow.next = sequence;
        flow.position = 0;
    }

    // Far from what is due: somebody else's, unless a second one goes on where it ended.
    static bool isStray(Flow& flow, std::uint32_t sequence, std::size_t size)
    {
        const auto distance = static_cast<std::int32_t>(sequence - flow.next);
        if (distance > -kFarAway && distance < kFarAway)
            return false;
        const bool goesOn = size > 0 && flow.strayNext == sequence;
        flow.strayNext = sequence + static_cast<std::uint32_t>(size);
        if (!goesOn)
            return true;
        skipHoles(flow);
        flow.splitter.lose(0);
        flow.next = sequence;
        return false;
    }

    void takeData(Flow& flow, std::int32_t distance, const Packet& packet)
    {
        std::string_view data = packet.data;
        std::size_t missing = packet.missing;
        if (distance > 0) {
            if (!data.empty())
                wait(flow, flow.position + static_cast<std::uint32_t>(distance), packet);
        } else {
            // What came before is left out.
            const auto known = static_cast<std::size_t>(-static_cast<std::int64_t>(distance));
            const std::size_t dropped = std::min(known, data.size());
            data.remove_prefix(dropped);
            missing -= std::min(missing, known - dropped);
            advance(flow, data, missing);
            drain(flow);
        }
        if (!flow.waiting.empty() &&
            (flow.waitingBytes > m_limits.waiting || flow.waiting.size() > m_limits.segments ||
             packet.time - flow.holeSince > m_limits.hole))
            skipHole(flow, packet.time);
    }

    static void wait(Flow& flow, std::uint64_t at, const Packet& packet)
    {
        if (flow.waiting.empty())
            flow.holeSince = packet.time;
        std::string& kept = flow.waiting[at];
        if (kept.size() >= packet.data.size())
            return;
        flow.waitingBytes += packet.data.size() - kept.size();
        kept.assign(packet.data);
    }

    static void advance(Flow& flow, std::string_view data, std::size_t missing)
    {
        if (!data.empty())
            flow.splitter.take(data);
        if (missing > 0)
            flow.splitter.lose(missing);
        flow.next += static_cast<std::uint32_t>(data.size() + missing);
        flow.position += data.size() + missing;
    }

    // Gives the waiting segments that the stream has reached.
    static void drain(Flow& flow)
    {
        while (!flow.waiting.empty() && flow.waiting.begin()->first <= flow.position) {
            const auto first = flow.waiting.begin();
            flow.waitingBytes -= first->second.size();
            const std::uint64_t known = flow.position - first->first;
            if (known < first->second.size())
                advance(flow, std::string_view(first->second).substr(static_cast<std::size_t>(known)), 0);
            flow.waiting.erase(first);
        }
    }

    static void skipHole(Flow& flow, double time)
    {
        advance(flow, {}, static_cast<std::size_t>(flow.waiting.begin()->first - flow.position));
        drain(flow);
        flow.holeSince = time;
    }

    static void skipHoles(Flow& flow)
    {
        while (!flow.waiting.empty())
            skipHole(flow, 0);
    }

    static void finish(Flow& flow)
    {
        if (std::exchange(flow.isClosed, true))
            return;
        skipHoles(flow);
        flow.splitter.end();
    }

    // Of the memory that the flow takes, what has changed.
    void count(Flow& flow)
    {
        const std::size_t held =
            flow.isClosed ? 0 : flow.splitter.held() + flow.waitingBytes + flow.waiting.size() * kSegmentCost;
        m_held += held - flow.held;
        flow.held = held;
    }

    // The flow that was least in use.
    void drop()
    {
        Flow& flow = m_flows.front();
        finish(flow);
        m_held -= flow.held;
        m_index.erase(flow.route);
        m_flows.pop_front();
    }

    Receive m_receive;
    CaptureLimits m_limits;
    FlowList m_flows; // the least used first
    std::unordered_map<Route, FlowList::iterator, HashRoute> m_index;
    std::size_t m_held = 0;
    Tins::IPv4Reassembler m_reassembler;
    std::size_t m_fragments = 0;
};

Capture::Capture(Receive receive, const CaptureLimits& limits)
    : m_flows(std::make_unique<Flows>(std::move(receive), limits))
{}

Capture::~Capture() = default;

void Capture::take(double time, int link, std::string_view packet, std::size_t missing)
{
    try {
        m_flows->take(time, link, packet, missing);
    } catch (const Tins::exception_base&) {
        // It isn't well-formed.
    }
}

void Capture::end()
{
    m_flows->end();
}

std::size_t Capture::held() const
{
    return m_flows->held();
}

std::size_t Capture::flows() const
{
    return m_flows->count();
}

bool Capture::knows(int link)
{
    constexpr std::array<int, 12> kLinks = {DLT_EN10MB,     DLT_IEEE802_11_RADIO,
                                            DLT_IEEE802_11, DLT_LINUX_SLL,
                                            DLT_LINUX_SLL2, DLT_PPI,
                                            DLT_PKTAP,      DLT_NULL,
                                            DLT_LOOP,       DLT_RAW,
                                            DLT_IPV4,       DLT_IPV6};
    return std::find(kLinks.begin(), kLinks.end(), link) != kLinks.end();
}

namespace {

// libpcap reads from a file of the C library.
ssize_t readCookie(void* cookie, char* to, std::size_t room)
{
    auto& [input, failure] = *static_cast<std::pair<Input*, std::exception_ptr>*>(cookie);
    try {
        return static_cast<ssize_t>(input->read(to, room));
    } catch (...) {
        failure = std::current_exception();
        return -1;
    }
}

} // namespace

void readCapture(Input& input, const Receive& receive)
{
    std::pair<Input*, std::exception_ptr> cookie(&input, nullptr);
    std::FILE* const file = fopencookie(&cookie, "rb", {readCookie, nullptr, nullptr, nullptr});
    if (!file)
        throw std::runtime_error("no memory for a capture");
    std::setvbuf(file, nullptr, _IOFBF, 256u << 10);
    std::array<char, PCAP_ERRBUF_SIZE> error{};
    const std::unique_ptr<pcap_t, void (*)(pcap_t*)> pcap(pcap_fopen_offline(file, error.data()), pcap_close);
    if (!pcap) {
        std::fclose(file);
        if (cookie.second)
            std::rethrow_exception(cookie.second);
        throw std::runtime_error(error.data());
    }
    const int link = pcap_datalink(pcap.get());
    if (!Capture::knows(link)) {
        const char* const name = pcap_datalink_val_to_name(link);
        throw std::runtime_error(std::string("a capture of a link that isn't known: ") +
                                 (name ? name : std::to_string(link)));
    }

    Capture capture(receive);
    std::uint64_t count = 0;
    pcap_pkthdr* head = nullptr;
    const u_char* bytes = nullptr;
    int result = 0;
    while ((result = pcap_next_ex(pcap.get(), &head, &bytes)) == 1) {
        ++count;
        const double time =
            static_cast<double>(head->ts.tv_sec) + static_cast<double>(head->ts.tv_usec) / 1e6;
        const std::size_t missing = head->len > head->caplen ? head->len - head->caplen : 0;
        capture.take(time, link, {reinterpret_cast<const char*>(bytes), head->caplen}, missing);
    }
    capture.end();
    if (cookie.second)
        std::rethrow_exception(cookie.second);
    if (result == PCAP_ERROR)
        reportDamage(receive, "behind packet " + std::to_string(count) + ": " + pcap_geterr(pcap.get()));
}

} // namespace inspect
