// Large captures, to measure how fast `zel read` goes through them beside libtins alone.
//
//   zel_captures make FILE MEGABYTES [small]   cameras that are asked, tell and send media; or small messages
//   alone zel_captures walk FILE                     libtins alone: every packet, every layer
//
// One segment in a thousand comes late, one is sent twice; one in ten thousand was not captured.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <tins/tins.h>
#include <vector>

#include "zel_protocol/zel_protocol.h"

namespace {

constexpr std::size_t kSegment = 1448;
constexpr int kCameras = 16;
constexpr std::size_t kChunk = 48 * 1024; // bytes of media in a message

// A composed message with the data that it announces.
std::string composed(const char* type, const char* code, const void* record, int kind, std::size_t data = 0)
{
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    std::strcpy(header.Msg_type, type);
    std::strcpy(header.Msg_code, code);
    std::string bytes(64 * 1024, '\0');
    const int size = ZelProtocolXMLCompose(&header, record, kind, ZEL_CODEC_PLAIN, nullptr, bytes.data(),
                                           static_cast<int>(bytes.size()));
    if (size < 0)
        std::abort();
    bytes.resize(static_cast<std::size_t>(size));
    if (data > 0)
        bytes.append(ZEL_FRAME_END_CODE_SIZE, '\0');
    std::mt19937 random(static_cast<unsigned>(data));
    for (std::size_t i = 0; i < data; ++i)
        bytes += static_cast<char>(random());
    return bytes;
}

std::string heartbeat()
{
    ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM record;
    ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init(&record);
    std::strcpy(record.Ipcs_stat, "1111000011110000");
    return composed("ZEL_HEARTBEAT_MESSAGE", "CMD_HEARTBEAT", &record, ZEL_KIND_REQUEST);
}

std::string jump()
{
    NVR_REPLAY_3010_PARAM record;
    NVR_REPLAY_3010_PARAM_init(&record);
    record.ChannelId = 2;
    std::strcpy(record.Time, "2024-05-06 07:08:09");
    return composed("NVR_REPLAY_MESSAGE", "3010", &record, ZEL_KIND_REQUEST);
}

std::string media()
{
    MEDIA_DATA_1_PARAM record;
    MEDIA_DATA_1_PARAM_init(&record);
    record.StartPos = 0;
    record.DataLen = static_cast<std::int32_t>(kChunk);
    return composed("MEDIA_DATA_MESSAGE", "1", &record, ZEL_KIND_REQUEST, kChunk);
}

class CaptureWriter
{
public:
    CaptureWriter(const char* path, std::uint64_t size)
        : m_writer(path, Tins::DataLinkType<Tins::EthernetII>()), m_size(size)
    {}

    bool isFull() const
    {
        return m_written >= m_size;
    }

    void send(int camera, std::string_view message)
    {
        while (!message.empty()) {
            const std::string_view data = message.substr(0, kSegment);
            message.remove_prefix(data.size());
            Tins::EthernetII packet = segment(camera, data);
            m_sequences[camera] += static_cast<std::uint32_t>(data.size());
            const auto chance = static_cast<unsigned>(m_random() % 10000);
            if (chance == 0)
                continue;
            if (chance < 10 && m_late.empty()) {
                m_late.push_back(std::move(packet));
                continue;
            }
            write(packet);
            if (chance < 20)
                write(packet);
            for (Tins::EthernetII& late : m_late)
                write(late);
            m_late.clear();
        }
    }

private:
    Tins::EthernetII segment(int camera, std::string_view data) const
    {
        Tins::TCP tcp(40000, 8000);
        tcp.seq(m_sequences[camera]);
        tcp.flags(Tins::TCP::ACK);
        // As usual: two blanks and the time.
        tcp.add_option({Tins::TCP::NOP});
        tcp.add_option({Tins::TCP::NOP});
        tcp.timestamp(1, 2);
        return Tins::EthernetII("00:11:22:33:44:55", "00:11:22:33:44:66") /
               Tins::IP("10.0.1.1", "10.0.0." + std::to_string(camera + 1)) / tcp /
               Tins::RawPDU(reinterpret_cast<const std::uint8_t*>(data.data()),
                            static_cast<std::uint32_t>(data.size()));
    }

    void write(Tins::EthernetII& packet)
    {
        m_time += std::chrono::microseconds(100);
        m_written += packet.size();
        Tins::Packet timed(packet, Tins::Timestamp(m_time));
        m_writer.write(timed);
    }

    Tins::PacketWriter m_writer;
    std::uint64_t m_size;
    std::uint64_t m_written = 0;
    std::chrono::microseconds m_time = std::chrono::seconds(1700000000);
    std::uint32_t m_sequences[kCameras] = {};
    std::vector<Tins::EthernetII> m_late;
    std::mt19937 m_random;
};

int makeCapture(const char* path, std::uint64_t megabytes, bool isSmall)
{
    CaptureWriter writer(path, megabytes << 20);
    const std::string messages[] = {heartbeat(), jump(), media()};
    for (unsigned turn = 0; !writer.isFull(); ++turn) {
        const int camera = static_cast<int>(turn % kCameras);
        writer.send(camera, messages[turn / kCameras % 2]);
        if (!isSmall)
            writer.send(camera, messages[2]);
    }
    return 0;
}

int walk(const char* path)
{
    const auto start = std::chrono::steady_clock::now();
    std::uint64_t packets = 0;
    std::uint64_t bytes = 0;
    Tins::FileSniffer(path).sniff_loop([&](const Tins::PDU& packet) {
        ++packets;
        const auto* const data = packet.find_pdu<Tins::RawPDU>();
        bytes += data ? data->payload_size() : 0;
        return true;
    });
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("%llu packets with %llu bytes of data in %.2f s\n", static_cast<unsigned long long>(packets),
                static_cast<unsigned long long>(bytes), seconds);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view command = argc > 2 ? argv[1] : "";
    if (command == "make" && argc > 3)
        return makeCapture(argv[2], std::strtoull(argv[3], nullptr, 10), argc > 4);
    if (command == "walk")
        return walk(argv[2]);
    std::fprintf(stderr, "usage: zel_captures make FILE MEGABYTES [small] | walk FILE\n");
    return 2;
}
