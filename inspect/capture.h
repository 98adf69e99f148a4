/**
 * Packets of any link type that libtins knows, put together to the streams of TCP connections and to
 * datagrams of UDP. The memory for all of that is bounded: connections that have ended, are idle for long or
 * were least in use go, and what is missing isn't waited for for long.
 */
#ifndef ZEL_INSPECT_CAPTURE_H
#define ZEL_INSPECT_CAPTURE_H

#include <cstddef>
#include <memory>
#include <string_view>

#include "inspect/input.h"

namespace inspect {

struct CaptureLimits
{
    std::size_t flows = 4096;          // directions of connections
    std::size_t bytes = 256u << 20;    // kept for all of them
    std::size_t waiting = 1u << 20;    // of one that wait for a segment before them
    std::size_t segments = 1024;       // as many
    double hole = 5;                   // seconds that a segment is waited for
    double idle = 600;                 // seconds after which a connection is taken for gone
    std::size_t fragments = 16u << 20; // bytes of fragments
};

class Capture
{
public:
    explicit Capture(Receive receive, const CaptureLimits& limits = {});
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;
    ~Capture();

    // One packet as it lay on the link (a DLT_ of libpcap), without the last `missing` bytes. Packets that
    // aren't well-formed are left out.
    void take(double time, int link, std::string_view packet, std::size_t missing = 0);
    // No more packets.
    void end();

    static bool knows(int link);

    std::size_t held() const; // bytes that are kept
    std::size_t flows() const;

private:
    class Flows;
    std::unique_ptr<Flows> m_flows;
};

// pcap or pcapng. Throws a std::runtime_error if it is neither.
void readCapture(Input& input, const Receive& receive);

} // namespace inspect

#endif
