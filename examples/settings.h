/**
 * Settings of which nothing needs to be known: the catalogue says which message asks for a record and which
 * one sets it. The camera keeps one record for each such pair.
 */
#ifndef EXAMPLES_SETTINGS_H
#define EXAMPLES_SETTINGS_H

#include "sample.h"

#include <map>
#include <string>
#include <vector>

namespace demo {

/** A question with its answer, and the request that changes what is answered: two forms of one record. */
struct SettingsPair
{
    CatalogueMessage get; /**< the response */
    CatalogueMessage set; /**< the request */
};

/** All that the catalogue has: of the requests that set what a response tells, the next code is its pair. */
std::vector<SettingsPair> settingsPairs();

/** Whether `found` has what `wanted` sets, and all else as it was in `before`; of rows, in the first.
 */
bool isChangedTo(const SettingsPair& pair, Sample& wanted, const void* before, const void* found);

struct KeptSettings
{
    SettingsPair pair;
    Block record;
};

/** By the code that asks for them. They come out of the box with values that the catalogue suggests. */
using Settings = std::map<std::string, KeptSettings, std::less<>>;
Settings factorySettings();

/** Null if there are none. */
const Block* findSettings(const Settings& settings, std::string_view code);

/** Takes what a request sets; false, with nothing changed, for another code or a text that would spoil a
 * document. */
bool changeSettings(Settings& settings, std::string_view code, const void* wanted);

} // namespace demo

#endif
