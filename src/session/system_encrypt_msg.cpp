#include "zel_protocol/system_encrypt.h"

#include "core/families.h"

namespace zel {

namespace {

// --- Attribute list, for both directions ---------------------------------------------------------

void keyConfig(Side& side, SYSTEM_ENCRYPT_150_PARAM& record)
{
    if (const Element key = element(side, "KeyConfig")) {
        atoiAttribute(side, "KeyLen", record.KeyLen);
        wholeFieldAttribute(side, "KeyValue", record.KeyValue);
    }
}

// --- Message -------------------------------------------------------------------------------------

constexpr MessageRow kSystemEncrypt =
    message<SYSTEM_ENCRYPT_150_PARAM_init>("SystemEncryptMessageAnalysis", body<keyConfig>()).quiet();

constexpr CodeRow kCodes[] = {{0, &kSystemEncrypt, nullptr, 0, ""}};

} // namespace

extern constexpr Family kSystemEncryptFamily =
    Family("SYSTEM_ENCRYPT_MESSAGE", kCodes, composeOnly, analyseOnly)
        .loggedAs("SYSTEM_ENCRYPT_MESSAGE", "SystemEncryptMessageAnalysis");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_ENCRYPT_150_PARAM_init(SYSTEM_ENCRYPT_150_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.KeyValue); });
}

int SystemEncryptMessageCompose(const void* record, int kind, char* buf, int len)
{
    return zel::composeBody(zel::kSystemEncryptFamily, record, kind, "", buf, len);
}

int SystemEncryptMessageAnalysis(const char* text, void** result)
{
    return zel::analyseText(zel::kSystemEncryptFamily, text, "", result);
}
