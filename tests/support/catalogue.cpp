#include "support/catalogue.h"

#include <cstddef>

namespace test {

namespace {

// An extension of which every byte says 1, as large as any.
void* fullExtension()
{
    static std::vector<long double> bytes(1 << 15);
    memset(bytes.data(), '1', bytes.size() * sizeof bytes[0]);
    return bytes.data();
}

void setNumber(void* record, size_t offset, int32_t value)
{
    memcpy(static_cast<char*>(record) + offset, &value, sizeof value);
}

template <class Record>
Record& as(void* record)
{
    return *static_cast<Record*>(record);
}

struct Form
{
    std::string_view record;
    void (*choose)(void* record);
};

// Records whose fields choose a form, and can't be any number.
constexpr Form kForms[] = {
    // With room for the line feeds that the envelope puts around it.
    {"DBG_CMD_PARAM", [](void* record) { as<DBG_CMD_PARAM>(record).acText[8000] = '\0'; }},
    {"NVR_INTERNAL_4001_PARAM",
     [](void* record) {
         as<NVR_INTERNAL_4001_PARAM>(record).stStream1.Stream = 1;
         as<NVR_INTERNAL_4001_PARAM>(record).stStream2.Stream = 2;
     }},
    {"SYSTEM_CONFIG_GET_501_PARAM",
     [](void* record) { as<SYSTEM_CONFIG_GET_501_PARAM>(record).iBlankForm = -1; }},
    {"SYSTEM_CONTROL_1020_PARAM",
     [](void* record) { as<SYSTEM_CONTROL_1020_PARAM>(record).bRemoteAuthority = 0; }},
    {"SYSTEM_CONTROL_1032_PARAM", [](void* record) { as<SYSTEM_CONTROL_1032_PARAM>(record).bSendIpc = 1; }},
    {"SYSTEM_LOG_PARAM", [](void* record) { as<SYSTEM_LOG_PARAM>(record).iRespDataLen = 3; }},
    {"TRANSPARENT_HEADER", [](void* record) { as<TRANSPARENT_HEADER>(record).iTransDataLen = 3; }},
};

// Raw data is short, and not the library's to read.
void announceData(const CatalogueEntry& entry, void* record)
{
    for (const int kind : {0, 1})
        describe(entry, kind, [&](const ZEL_DESCRIPTION& seen) {
            if (seen.attribute && strcmp(seen.attribute, "DataLen") == 0)
                setNumber(record, seen.offset, 3);
        });
}

void setPointer(const CatalogueEntry& entry, void* record, void* pointer)
{
    memcpy(static_cast<char*>(record) + entry.pointerAt, &pointer, sizeof pointer);
}

} // namespace

const std::vector<CatalogueEntry>& catalogue()
{
    // The texts stay here; the memory sanitizer doesn't know what a std::string writes.
    static std::vector<ZEL_CATALOGUE_ENTRY> entries(static_cast<size_t>(ZelProtocolCatalogueCount()));
    static const std::vector<CatalogueEntry> all = [] {
        std::vector<CatalogueEntry> made;
        for (size_t i = 0; i < entries.size(); ++i) {
            ZEL_CATALOGUE_ENTRY& entry = entries[i];
            ZelProtocolCatalogueEntry(static_cast<int>(i), &entry);
            if (!entry.record || strcmp(entry.Msg_type, "TRANSPARENT_CHANNEL_MSG") == 0)
                continue;
            std::vector<int> kinds;
            for (const int kind : {0, 1})
                if ((entry.kinds >> kind & 1) != 0)
                    kinds.push_back(kind);
            made.push_back({static_cast<int>(i), entry.Msg_type, entry.Msg_code, entry.word ? entry.word : "",
                            entry.record, kinds, entry.record_size, entry.init, entry.pointer_at,
                            entry.extension_size, entry.alarm_code, entry.behind, entry.is_bare != 0});
        }
        return made;
    }();
    return all;
}

bool initLeavesFields(std::string_view record)
{
    for (const std::string_view leaving :
         {"SYSTEM_CONFIG_GET_1412_PARAM", "SYSTEM_CONFIG_SET_1413_PARAM", "SYSTEM_CONFIG_GET_2515_PARAM",
          "SYSTEM_CONFIG_SET_2535_PARAM", "SYSTEM_CONFIG_GET_802_PARAM", "SYSTEM_CONFIG_SET_820_PARAM",
          "SYSTEM_CONFIG_SET_822_PARAM"})
        if (record == leaving)
            return true;
    return false;
}

RecordBytes freshRecord(const CatalogueEntry& entry)
{
    RecordBytes bytes(entry.size / sizeof(long double) + 1);
    entry.init(bytes.data());
    return bytes;
}

void completeRecord(const CatalogueEntry& entry, void* record)
{
    if (entry.pointerAt != 0)
        setPointer(entry, record, entry.extensionSize != 0 ? fullExtension() : nullptr);
    if (entry.behind == ZEL_BEHIND_RAW_DATA)
        announceData(entry, record);
    if (!entry.word.empty()) {
        auto& command = as<PTZ_CONTROL_PTZ_CMD_PARAM>(record);
        command.channelid = 3;
        memset(command.cmd, 0, sizeof command.cmd);
        strncpy(command.cmd, entry.word.data(), sizeof command.cmd - 1);
    }
    if (entry.type == "ALARM_REPORT_MESSAGE") {
        auto& alarm = as<ALARM_REPORT_CMD_RPEORT_ALARM_PARAM>(record);
        alarm.Alarm_code = entry.alarmCode == -1 ? 12 : entry.alarmCode;
        if (entry.alarmCode == -1)
            alarm.pExData = nullptr;
    }
    for (const Form& form : kForms)
        if (form.record == entry.record)
            form.choose(record);
}

RecordBytes fullRecord(const CatalogueEntry& entry)
{
    RecordBytes bytes(entry.size / sizeof(long double) + 1);
    memset(bytes.data(), '1', entry.size);
    completeRecord(entry, bytes.data());
    return bytes;
}

ZEL_PROTOCOL_HEADER catalogueHeader(const CatalogueEntry& entry)
{
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    strncpy(header.Msg_type, entry.type.data(), sizeof header.Msg_type - 1);
    strncpy(header.Msg_code, entry.code.data(), sizeof header.Msg_code - 1);
    return header;
}

void describe(const CatalogueEntry& entry, int kind, const std::function<void(const ZEL_DESCRIPTION&)>& see)
{
    ZelProtocolCatalogueDescribe(
        entry.index, kind,
        [](void* context, const ZEL_DESCRIPTION* seen) {
            (*static_cast<const std::function<void(const ZEL_DESCRIPTION&)>*>(context))(*seen);
        },
        const_cast<void*>(static_cast<const void*>(&see)));
}

} // namespace test
