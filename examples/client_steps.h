/**
 * What the client does and checks, step by step. Each step is true if all went as expected; the later ones
 * build on the earlier ones.
 */
#ifndef EXAMPLES_CLIENT_STEPS_H
#define EXAMPLES_CLIENT_STEPS_H

#include "client_link.h"

namespace demo {

/* client_visit.cpp: coming in, and the connection itself. */

bool findsCamera(Client& client);
bool connects(Client& client);
bool heartbeatNeedsLogin(Client& client);
bool wrongPasswordIsRefused(Client& client);
bool rightPasswordLogsIn(Client& client);
bool heartbeatIsAnswered(Client& client);
bool transparentIsUnwrapped(Client& client);
bool endlessWrappingIsRefused(Client& client);
bool splitWritesAreJoined(Client& client);
bool joinedWritesAreSplit(Client& client);
bool garbageIsRefused(Client& client);
bool wrongLengthsAreRefused(Client& client);
bool wrongKeyIsRefused(Client& client);
bool changeOfCipherIsRefused(Client& client);

/* client_day.cpp: a recorder's day. */

bool identityIsRead(Client& client);
bool abilitiesAreRead(Client& client);
bool configIsChanged(Client& client);
bool wrongConfigIsRefused(Client& client);
bool guestMayNotChangeConfig(Client& client);
bool allSettingsAreKept(Client& client);
bool streamStartsAndStops(Client& client);
bool cameraMoves(Client& client);
bool recordingIsFoundAndDownloaded(Client& client);
bool alarmsAreReceived(Client& client);

} // namespace demo

#endif
