/**
 * A client, a recorder say, that finds the camera, visits it and checks every answer.
 *
 *   client SEARCH_PORT [--cipher] [--record FILE]
 *
 * The camera is searched at that port of the loopback interface. With --cipher every message of the
 * connection is enciphered. With --record all that the first connection receives goes into FILE. The exit
 * status is 0 only if every exchange went as expected.
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
           passed(demo::allSettingsAreKept(client), "all other settings are changed and read back") &&
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
    bool understood = argc >= 2 && demo::readNumber(argv[1], 65535, port) && port != 0;
    for (int i = 2; i < argc && understood; ++i) {
        const std::string_view option = argv[i];
        if (option == "--cipher") {
            client.cipher = demo::exampleCipher();
        } else if (option == "--record" && i + 1 < argc && !client.link.recording) {
            client.link.recording = std::fopen(argv[++i], "wb");
            understood = client.link.recording != nullptr;
        } else {
            understood = false;
        }
    }
    if (!understood) {
        std::fprintf(stderr, "usage: client SEARCH_PORT [--cipher] [--record FILE]\n");
        return 2;
    }
    // The transcript has the status of every message; the log would call each answer without parameters an
    // error.
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_NONE);
    client.searchPort = static_cast<std::uint16_t>(port);

    demo::printNote(demo::kClientName, client.cipher.mode >= 0 ? "every message enciphered but the search"
                                                               : "every message plain");
    bool good = runSteps(client);
    if (client.link.recording)
        good = std::fclose(client.link.recording) == 0 && good;
    return good ? 0 : 1;
}
