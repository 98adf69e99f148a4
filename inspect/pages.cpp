// Writes docs/messages: a page for each type of message, made of the catalogue, the headers' comments and
// samples.
#include <algorithm>
#include <cctype>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "inspect/describe.h"
#include "inspect/json.h"
#include "inspect/message.h"
#include "zel_platform/default_layer.h"
#include "zel_protocol/catalogue.h"

namespace {

using namespace inspect;

// What the tables don't say: who begins.
struct Introduction
{
    std::string_view type;
    std::string_view text;
};

constexpr Introduction kIntroductions[] = {
    {"ZEL_HEARTBEAT_MESSAGE", "A client keeps its connection alive, and the device answers with its state."},
    {"AUXPTZ_HEARTBEAT_MESSAGE", "The heartbeat of the connection that moves a camera."},
    {"USER_AUTH_MESSAGE", "The login: a client's first message on a connection, and the device's answer."},
    {"SYSTEM_ENCRYPT_MESSAGE", "Both ends agree on how they encipher."},
    {"TRANSPARENT_CHANNEL_MSG", "Wraps another message as raw bytes, for a channel behind the device."},
    {"SYSTEM_SEARCHIPC_MESSAGE", "A client looks for devices in its network and readdresses them; bare texts "
                                 "in datagrams, never enciphered."},
    {"IPC_REPAIR_MESSAGE",
     "A client repairs a device that it finds in its network; bare texts in datagrams."},
    {"LIVE_STREAM_MESSAGE",
     "A client starts and stops live pictures, and the device says how it sends them."},
    {"REVERSE_AUDIO_MESSAGE", "A client talks through the device's loudspeaker."},
    {"NVR_REPLAY_MESSAGE", "A client searches a recorder for recordings, plays and downloads them."},
    {"REPLAY_CONTROL_MESSAGE", "A client steers the playback of recordings."},
    {"MEDIA_DATA_MESSAGE", "Files and pictures in pieces, whose bytes follow the text."},
    {"PTZ_CONTROL_MESSAGE", "A client moves a camera: each command is a word in the message."},
    {"ALARM_REPORT_MESSAGE",
     "A device reports an alarm to whoever is logged in; what kind it is decides its extension."},
    {"DEVICE_REPORT_MESSAGE", "A device reports its state unasked."},
    {"SYSTEM_CONTROL_MESSAGE", "A client asks what a device is and can, and has it do things."},
    {"SYSTEM_CONFIG_GET_MESSAGE",
     "A client asks for settings: most questions are a header alone, the answer has the settings."},
    {"SYSTEM_CONFIG_SET_MESSAGE",
     "A client changes settings: the question has them, most answers are a header alone."},
    {"IOT_CAMERA_MESSAGE", "A client asks and sets what cameras for the home have."},
    {"NVR_INTERNAL_MESSAGES", "A recorder and its cameras among themselves."},
    {"NVR_PRODUCE_TEST_MESSAGE", "A bench at the factory tests a device."},
    {"DBG_CMD_MESSAGE", "A developer's command and its answer, as they stand."},
    {"OPEN_DBG_MESSAGE", "Opens a developer's session; a header alone."},
    {"CLOSE_DBG_MESSAGE", "Closes a developer's session; a header alone."},
    {"SYSTEM_LOG_MESSAGE", "A client fetches a device's log, in pieces that follow the text."},
    {"SYSTEM_LOG_DATA", "The pieces of a log."},
};

std::string_view introductionOf(std::string_view type)
{
    const auto* const found = std::find_if(std::begin(kIntroductions), std::end(kIntroductions),
                                           [type](const Introduction& one) { return one.type == type; });
    if (found == std::end(kIntroductions))
        throw std::runtime_error(std::string(type) + " has no introduction in inspect/pages.cpp");
    return found->text;
}

// What means something in a table's cell, or of a heading.
std::string escaped(std::string_view text)
{
    std::string safe;
    for (const char c : text) {
        if (std::string_view("|<>*_[]`\\").find(c) != std::string_view::npos)
            safe += '\\';
        safe += c;
    }
    return safe;
}

std::string code(std::string_view text)
{
    return text.empty() ? "" : "`" + std::string(text) + "`";
}

std::string anchorOf(int index)
{
    std::string anchor;
    for (const char c : nameOf(index))
        if (c != '/')
            anchor += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return anchor;
}

std::string kindsOf(const Form& form, bool isForAll)
{
    if (isForAll)
        return "Any kind";
    std::string names(nameOfKind(form.kind));
    for (const int kind : form.same)
        names.append(", ").append(nameOfKind(kind));
    names.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(names.front())));
    return names;
}

void writePart(std::ostream& out, const Described& part)
{
    const auto depth = part.path.empty() ? 0 : std::count(part.path.begin(), part.path.end(), '/') + 1;
    std::string indent;
    for (long i = part.isElement ? 1 : 0; i < depth; ++i)
        indent += "&emsp;";
    if (part.isElement) {
        out << "| " << indent << code("<" + part.path.substr(part.path.rfind('/') + 1) + ">") << " | | | "
            << (part.rows == 0 ? "" : "up to " + std::to_string(part.rows)) << " |\n";
        return;
    }
    std::string notes;
    const auto note = [&notes](const std::string& text) {
        if (!text.empty())
            notes.append(notes.empty() ? "" : "; ").append(text);
    };
    std::string field;
    if (part.place.field) {
        field = code(declarationOf(*part.place.field, part.place.path));
        note(escaped(part.place.field->comment));
    }
    note(std::string(nameOf(part.direction)));
    if (part.isSkipped)
        note("not written when absent");
    if (part.inExtension)
        note("in the extension");
    out << "| " << indent << (part.attribute.empty() ? "text" : code(part.attribute)) << " | "
        << nameOf(part.form) << " | " << field << " | " << notes << " |\n";
}

void writeHead(std::ostream& out, int index, const ZEL_CATALOGUE_ENTRY& entry)
{
    out << "\n## " << nameOf(index) << "\n\n";
    if (entry.record)
        if (const std::string_view note = findRecord(entry.record)->comment; !note.empty())
            out << escaped(note) << "\n\n";
    if (entry.operation)
        out << "- Operation: " << code(entry.operation) << '\n';
    if (entry.record)
        out << "- Record: " << code(entry.record) << ", " << entry.record_size << " bytes\n";
    if (entry.extension)
        out << "- Extension: " << code(entry.extension) << ", " << entry.extension_size << " bytes\n";
    if (entry.behind == ZEL_BEHIND_RAW_DATA)
        out << "- Behind the text: raw data, as long as the record announces\n";
    if (entry.behind == ZEL_BEHIND_FEATURE_BLOCK)
        out << "- Behind the text: a face's features, 512 or 1024 bytes\n";
    if (entry.is_bare)
        out << "- Frame: none, a bare text\n";
    if (!entry.record)
        out << "- A header alone\n";
}

void writeMessage(std::ostream& out, int index)
{
    ZEL_CATALOGUE_ENTRY entry{};
    ZelProtocolCatalogueEntry(index, &entry);
    writeHead(out, index, entry);
    for (const Form& form : formsOf(index)) {
        out << "\n### " << kindsOf(form, entry.kinds == 0) << "\n\n";
        if (!form.parts.empty()) {
            out << "| on the wire | form | field | |\n|---|---|---|---|\n";
            for (const Described& part : form.parts)
                writePart(out, part);
        }
        const std::string sample = sampleText(index, form.kind);
        out << "\n```xml\n" << sample << (sample.back() == '\n' ? "" : "\n") << "```\n";
    }
}

// The messages of each type, in the catalogue's order.
std::vector<std::pair<std::string, std::vector<int>>> familiesOf()
{
    std::vector<std::pair<std::string, std::vector<int>>> families;
    for (int index = 0; index < ZelProtocolCatalogueCount(); ++index) {
        ZEL_CATALOGUE_ENTRY entry{};
        ZelProtocolCatalogueEntry(index, &entry);
        const auto known = std::find_if(families.begin(), families.end(),
                                        [&](const auto& family) { return family.first == entry.Msg_type; });
        if (known == families.end())
            families.push_back({entry.Msg_type, {index}});
        else
            known->second.push_back(index);
    }
    return families;
}

void writeFile(const std::string& path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file)
        throw std::runtime_error(path + " can't be written");
}

constexpr std::string_view kMade = "<!-- Written by `make pages` from the headers and the catalogue. -->\n";

std::string pageOf(const std::string& type, const std::vector<int>& messages)
{
    std::ostringstream page;
    page << kMade << "# " << type << "\n\n" << introductionOf(type) << " Samples have made-up values.\n\n";
    for (const int index : messages) {
        ZEL_CATALOGUE_ENTRY entry{};
        ZelProtocolCatalogueEntry(index, &entry);
        const std::string_view note = entry.record ? findRecord(entry.record)->comment : "";
        page << "- [" << escaped(nameOf(index)) << "](#" << anchorOf(index) << ")"
             << (note.empty() ? "" : ": " + escaped(note.substr(0, note.find(". ")))) << '\n';
    }
    for (const int index : messages)
        writeMessage(page, index);
    return page.str();
}

void writePages(const std::string& folder)
{
    std::ostringstream list;
    list << kMade << "# Messages\n\nAll " << ZelProtocolCatalogueCount()
         << " messages by type, each with its fields and a sample. `zel show MESSAGE` prints the same of one "
            "of them.\n\n"
            "| type | messages | |\n|---|---:|---|\n";
    for (const auto& [type, messages] : familiesOf()) {
        writeFile(folder + "/" + type + ".md", pageOf(type, messages));
        list << "| [" << escaped(type) << "](" << type << ".md) | " << messages.size() << " | "
             << introductionOf(type) << " |\n";
    }
    writeFile(folder + "/README.md", list.str());
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::cerr << "usage: zel_pages FOLDER\n";
        return 2;
    }
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_NONE);
    try {
        writePages(arguments[1]);
    } catch (const std::exception& error) {
        std::cerr << "zel_pages: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
