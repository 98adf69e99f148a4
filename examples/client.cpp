/**
 * A client, a recorder say, that finds the camera, visits it and checks every answer.
 *
 *   client SEARCH_PORT [--cipher]
 *
 * The camera is searched at that port of the loopback interface. With --cipher every message of the
 * connection is enciphered. The exit status is 0 only if every exchange went as expected.
 */
#include "client_steps.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace {

using demo::Client;

bool passed(bool outcome, const char* step)
{
    demo::printNote(demo::kClientName, std::string(outcome ? "ok: " : "FAILED: ") + step);
    return outcome;
}

/** Stops at the first step that fails: the later ones build on it. */
bool runSteps(Client& client)
{
    return passed(demo::findsCamera(client), "the camera is found by a search") &&
           passed(demo::connects(client), "the camera takes the connection") &&
           passed(demo::heartbeatNeedsLogin(client), "a heartbeat before the login is refused") &&
           passed(demo::wrongPasswordIsRefused(client), "a wrong password is refused") &&
           passed(demo::rightPasswordLogsIn(client), "the right password logs in") &&
           passed(demo::heartbeatIsAnswered(client), "a heartbeat is answered") &&
           passed(demo::identityIsRead(client), "the camera is the one that was found") &&
           passed(demo::abilitiesAreRead(client), "its abilities are read") &&
           passed(demo::configIsChanged(client), "its configuration is changed and read back") &&
           passed(demo::wrongConfigIsRefused(client), "a setting out of range changes nothing") &&
           passed(demo::guestMayNotChangeConfig(client), "a guest may not change settings") &&
           passed(demo::streamStartsAndStops(client), "a live stream starts and stops") &&
           passed(demo::cameraMoves(client), "the camera moves") &&
           passed(demo::alarmsAreReceived(client), "the alarms and their feature blocks are received") &&
           passed(demo::recordingIsFoundAndDownloaded(client), "a recording is found and downloaded") &&
           passed(demo::transparentIsUnwrapped(client), "a transparent message is unwrapped") &&
           passed(demo::endlessWrappingIsRefused(client), "a message that wraps itself is refused") &&
           passed(demo::splitWritesAreJoined(client), "a message in four writes is put together") &&
           passed(demo::joinedWritesAreSplit(client), "two messages in one write are told apart") &&
           passed(demo::garbageIsRefused(client), "garbage is refused") &&
           passed(demo::wrongLengthsAreRefused(client), "wrong lengths are refused") &&
           passed(demo::wrongKeyIsRefused(client), "a wrong key is refused") &&
           passed(demo::changeOfCipherIsRefused(client), "a change of the cipher is refused") &&
           passed(demo::heartbeatIsAnswered(client), "the first connection still stands");
}

} // namespace

int main(int argc, char** argv)
{
    Client client;
    int port = 0;
    const bool enciphered = argc == 3 && std::string_view(argv[2]) == "--cipher";
    if ((argc != 2 && !enciphered) || !demo::readNumber(argv[1], 65535, port) || port == 0) {
        std::fprintf(stderr, "usage: client SEARCH_PORT [--cipher]\n");
        return 2;
    }
    // The transcript has the status of every message; the log would call each answer without parameters an
    // error.
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_NONE);
    client.searchPort = static_cast<std::uint16_t>(port);
    if (enciphered)
        client.cipher = demo::exampleCipher();

    demo::printNote(demo::kClientName,
                    enciphered ? "every message enciphered but the search" : "every message plain");
    return runSteps(client) ? 0 : 1;
}
