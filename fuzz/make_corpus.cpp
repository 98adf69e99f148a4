// Writes the committed corpus and the dictionary: make_corpus DIRECTORY. One file for each message in each of
// its directions, and for each form that the catalogue doesn't have.
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>

#include "promises.h"
#include "support/exported.h"

namespace {

using namespace fuzz;
namespace fs = std::filesystem;

struct Form
{
    std::string name;
    std::string text;
};

std::string envelope(const std::string& header, const std::string& body)
{
    return "<?xml version=\"1.0\" encoding=\"GB2312\" ?>\n<XML_ZELMAR>\n<MESSAGE_HEADER\n" + header +
           "\n/>\n<MESSAGE_BODY>\n" + body + "</MESSAGE_BODY>\n</XML_ZELMAR>";
}

std::string typed(const char* type, const char* code)
{
    return std::string("Msg_type=\"") + type + "\"\nMsg_code=\"" + code + "\"\nMsg_flag=\"\"";
}

// Received forms that this library doesn't write.
std::vector<Form> otherForms()
{
    const std::string heartbeat = envelope(typed("ZEL_HEARTBEAT_MESSAGE", "CMD_HEARTBEAT"), "");
    return {
        {"transparent",
         "<XML_ZELMAR>\n<TRANSPARENT_HEADER\nTrans_Type=\"TRANSPARENT_CHANNEL_MSG\"\nChannel_ID=\"1\""
         "\n/>\n" +
             heartbeat.substr(heartbeat.find("<MESSAGE_HEADER"))},
        {"unquoted-channel",
         envelope(typed("SYSTEM_CONFIG_GET_MESSAGE", "501"), "<REQUEST_PARAM\nChannelId=3/>\n")},
        {"debug", envelope(typed("OPEN_DBG_MESSAGE", "1"), "")},
        {"unknown-type", envelope(typed("OTHER_MESSAGE", "1"), "")},
        {"unknown-code", envelope(typed("NVR_REPLAY_MESSAGE", "9999"), "")},
        {"without-record", envelope(typed("SYSTEM_CONTROL_MESSAGE", "1001"), "")},
        {"search-without-record", envelope(typed("SYSTEM_SEARCHIPC_MESSAGE", "9"), "")},
        {"version-request",
         envelope(typed("SYSTEM_CONTROL_MESSAGE", "1012"), "<REQUEST_PARAM\nChannelId=\"2\"\n/>\n")},
        {"text-body", envelope(typed("SYSTEM_CONTROL_MESSAGE", "1020"), "plain &lt;text&gt;\n")},
        {"references",
         envelope(typed("USER_AUTH_MESSAGE", "CMD_USER_AUTH"),
                  "<REQUEST_PARAM\nUsername=\"&#65;&#x20AC;&quot;\"\n/><![CDATA[c]]><!-- d -->\n")},
        {"document-type", "<!DOCTYPE a [<!ENTITY b \"c\">]>" + heartbeat},
        {"bad-reference", envelope(typed("USER_AUTH_MESSAGE", "&#0;"), "&#x110000;")},
    };
}

void write(const fs::path& file, const std::string& bytes)
{
    std::ofstream(file, std::ios::binary) << bytes;
}

std::string word(size_t number)
{
    return {static_cast<char>(number & 0xFF), static_cast<char>(number >> 8)};
}

// The first exported function that reads the text and hasn't been chosen yet; the first of all if there is
// none.
char leafFor(const std::string& text, std::set<size_t>& chosen)
{
    for (size_t i = 0; i < test::kLeafCount; ++i) {
        void* result = nullptr;
        const bool isRead = chosen.count(i) == 0 && test::kLeaves[i].analyse(text.c_str(), &result) == 0;
        ZelProtocolMSGAnalysisStop(&result);
        if (isRead) {
            chosen.insert(i);
            return static_cast<char>(i);
        }
    }
    return 0;
}

void addWords(std::set<std::string>& words, const std::string& text)
{
    for (size_t at = 0; at < text.size();) {
        size_t end = at;
        while (end < text.size() && (isalnum(static_cast<unsigned char>(text[end])) || text[end] == '_'))
            ++end;
        if (end - at > 2 && isalpha(static_cast<unsigned char>(text[at])))
            words.insert(text.substr(at, end - at));
        at = end + 1;
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: %s DIRECTORY\n", argv[0]);
        return 2;
    }
    const fs::path root = argv[1];
    for (const char* const name : {"analysis", "messages", "compose", "xml", "codec"}) {
        fs::remove_all(root / "corpus" / name);
        fs::create_directories(root / "corpus" / name);
    }
    const fs::path analysis = root / "corpus/analysis";
    std::set<size_t> chosen;
    std::set<std::string> words;
    for (const test::CatalogueEntry& entry : test::catalogue()) {
        const uint16_t number = numberOf(entry);
        for (const int kind : entry.kinds.empty() ? std::vector<int>{0} : entry.kinds) {
            std::string name = entry.name() + "-" + std::to_string(kind);
            std::replace(name.begin(), name.end(), ' ', '-');
            const Record record = makeRecord(entry, Fill::kCompact, "", true);
            const Composed composed =
                compose(test::catalogueHeader(entry), record.get(), kind, plainCodec(), kAmple);
            require(composed.status > 0, "the catalogue's messages can be composed");
            addWords(words, composed.text);
            std::string raw;
            if (composed.extra > 4 && composed.extra < 2048 && !entry.isBare())
                raw = std::string(4, '\0') + std::string(composed.extra - 4, 'r');
            const char way = static_cast<char>(number % 4 == 1 ? 0 : number % 4);
            write(analysis / name,
                  std::string{way, leafFor(composed.text, chosen), '\0'} + composed.text + raw);
            const char form = static_cast<char>(0x20 | number % 3);
            write(root / "corpus/messages" / name, word(number) +
                                                       std::string{static_cast<char>(kind), form, '\0'} +
                                                       word(4000) + std::string(1, '\0'));
            // One change: the last byte of the raw data is missing.
            if (!raw.empty())
                write(root / "corpus/messages" / (name + "-cut"),
                      word(number) + std::string{static_cast<char>(kind), form, '\0'} + word(4000) +
                          std::string("\1\16") + word(0) + word(7));
            write(root / "corpus/compose" / name,
                  word(number) + std::string{static_cast<char>(kind + 2), static_cast<char>(form | 8)} +
                      word(33 + number % 256));
        }
    }
    for (const Form& form : otherForms()) {
        write(analysis / form.name, std::string(3, '\0') + form.text);
        write(root / "corpus/xml" / form.name, std::string{'\x20', '\0'} + form.text);
        write(root / "corpus/codec" / form.name, std::string("\1\1\0seed-key", 11) + form.text);
        write(root / "corpus/codec" / (form.name + "-p2p"), std::string("\6\1\0seed-key", 11) + form.text);
    }
    std::string values = "<r e=\" +7x\" f=\"1.5e3\" g=\"\" h=\"-\"";
    for (const char* const number : {"0", "-1", "255", "256", "-128", "-129", "2147483648", "-2147483648",
                                     "-2147483649", "4294967295", "4294967296", "18446744073709551615",
                                     "18446744073709551616", "-9223372036854775808", "-9223372036854775809"})
        values += " a" + std::to_string(values.size()) + "=\"" + number + "\"";
    write(root / "corpus/xml/values", std::string("\x20\0", 2) + values + "><s> 12 text</s><s/><t/></r>");
    for (size_t i = 0; i < 6; ++i)
        write(root / "corpus/compose" / ("without-record-" + std::to_string(i)),
              word(i) + std::string("\2\0", 2) + word(4001) + "<MESSAGE_HEADER\n/></XML_ZELMAR>");

    for (const test::CatalogueEntry& entry : test::catalogue())
        if (!entry.word.empty())
            words.emplace(entry.word);

    std::ofstream dictionary(root / "zel.dict");
    dictionary << "# Names and words of the messages; written by make_corpus.\n";
    for (const std::string& one : words)
        dictionary << '"' << one << "\"\n";
    for (const char* const one :
         {"=\\\"", "\\\"\\x0a", "<![CDATA[", "]]>", "<!--", "-->", "<!DOCTYPE", "&#x", "&lt;", "/>\\x0a",
          "</XML_ZELMAR>", "\\x00\\x00\\x00\\x00", "-1", "4294967295"})
        dictionary << '"' << one << "\"\n";
    return 0;
}
