/**
 * XML service: reading of a received text.
 *
 * An application replaces it by defining all members and functions of this header itself.
 *
 * A parser object is a handle. Copies share one document, which lives until the last of them is gone, so a
 * copy may come and go without touching the original and its nodes. Objects that share a document belong to
 * one thread at a time; different documents are independent.
 *
 * A node is an opaque pointer into the document, NULL for "none". Every function takes a NULL node and then
 * finds nothing.
 */
#ifndef ZEL_PLATFORM_XML_H
#define ZEL_PLATFORM_XML_H

#include <climits>
#include <cstddef>
#include <cstring>

struct ZelXMLDocument;

/**
 * The same reading as below, by names of known length. A service may offer it, for speed alone, by setting
 * `lookups` in its documents; of one that doesn't, the functions below are called.
 *
 * A name ends with a NUL behind its `length` all the same. A node may be NULL, nothing else. What is told in
 * `size` has no terminator of its own. The readers tell whether the value was read.
 */
struct ZelXMLLookups
{
    void* (*firstChild)(ZelXMLDocument* document, void* node, const char* name, std::size_t length);
    void* (*nextSibling)(ZelXMLDocument* document, void* node, const char* name, std::size_t length);
    const char* (*attribute)(ZelXMLDocument* document, void* node, const char* name, std::size_t length,
                             std::size_t* size);
    bool (*readInt)(ZelXMLDocument* document, void* node, const char* name, std::size_t length, int* value);
    bool (*readUInt)(ZelXMLDocument* document, void* node, const char* name, std::size_t length,
                     unsigned int* value);
    bool (*readUChar)(ZelXMLDocument* document, void* node, const char* name, std::size_t length,
                      unsigned char* value);
    bool (*readUll)(ZelXMLDocument* document, void* node, const char* name, std::size_t length,
                    unsigned long long* value);
    bool (*readString)(ZelXMLDocument* document, void* node, const char* name, std::size_t length,
                       char* value, std::size_t limit);
};

/** What all handles of one document share. An XML service derives its own document from it. */
struct ZelXMLDocument
{
    int references;

    /** True if a quotation mark " follows each equals sign of the text, wherever it stands; false if in
     * doubt. */
    bool isQuoted = false;

    /** NULL, or faster ways of reading. */
    const ZelXMLLookups* lookups = nullptr;
};

class ZelXMLParser
{
public:
    ZelXMLParser() noexcept : document_(nullptr) {}
    ZelXMLParser(const ZelXMLParser& other) noexcept : document_(other.document_)
    {
        if (document_)
            ++document_->references;
    }
    ZelXMLParser& operator=(const ZelXMLParser& other) noexcept
    {
        ZelXMLParser copy(other);
        ZelXMLDocument* const mine = document_;
        document_ = copy.document_;
        copy.document_ = mine;
        return *this;
    }
    ~ZelXMLParser()
    {
        if (document_ && --document_->references == 0)
            release(document_);
    }

    /** Reads a NUL-terminated text. Returns 0, or a failure, after which the object has no root. */
    int Parse(const char* text) noexcept;

    /** Reads exactly `length` bytes; nothing behind them is looked at. */
    int Parse(const char* text, int length) noexcept;

    /** The root element, or NULL. */
    void* RootElement() const noexcept;

    /** The first child element of that name, or NULL. */
    void* FirstChildElement(void* node, const char* name) const noexcept;

    /** The next sibling element of that name, or NULL. */
    void* NextSiblingElement(void* node, const char* name) const noexcept;

    /** An attribute's value, or NULL. It may be written to, up to its end, and lives with the document. */
    char* Attribute(void* node, const char* name) const noexcept;

    /** The element's first text that isn't white space alone, its leading line feed included, or NULL. */
    const char* GetText(void* node) const noexcept;

    /*
     * The same for a name of known length, through the document's lookups if it has them. Nothing to define:
     * they fall back on the functions of this header. A value that comes with its size has no terminator.
     */
    void* FirstChildElement(void* node, const char* name, std::size_t length) const noexcept;
    void* NextSiblingElement(void* node, const char* name, std::size_t length) const noexcept;
    const char* Attribute(void* node, const char* name, std::size_t length, std::size_t* size) const noexcept;
    bool ReadInt(void* node, const char* name, std::size_t length, int* value) const noexcept;
    bool ReadUInt(void* node, const char* name, std::size_t length, unsigned int* value) const noexcept;
    bool ReadUChar(void* node, const char* name, std::size_t length, unsigned char* value) const noexcept;
    bool ReadUll(void* node, const char* name, std::size_t length, unsigned long long* value) const noexcept;
    bool ReadString(void* node, const char* name, std::size_t length, char* value,
                    std::size_t limit) const noexcept;

    /** See ZelXMLDocument::isQuoted. */
    bool IsQuoted() const noexcept
    {
        return document_ && document_->isQuoted;
    }

private:
    const ZelXMLLookups* lookups() const noexcept
    {
        return document_ ? document_->lookups : nullptr;
    }

    static void release(ZelXMLDocument* document) noexcept;

    ZelXMLDocument* document_;
};

/*
 * Readers. Each returns 0 if the value was read, and otherwise leaves the destination exactly as it was.
 *
 * A number is read in decimal, white space before it and anything behind it allowed. A text without a number
 * counts as absent, and so does a number that the destination's width can't hold, signed or unsigned; what
 * fits is stored by its bits, so -1 and 4294967295 give the same 32 bits.
 *
 * A text is cut to leave room for its terminator; `limit` is the destination's whole size.
 */
int getXmlIntTypeParamAttribute(ZelXMLParser parser, void* node, const char* name, int* value) noexcept;
int getXmlUIntTypeParamAttribute(ZelXMLParser parser, void* node, const char* name,
                                 unsigned int* value) noexcept;
int getXmlUCharTypeParamAttribute(ZelXMLParser parser, void* node, const char* name,
                                  unsigned char* value) noexcept;
int getXmlFloatTypeParamAttribute(ZelXMLParser parser, void* node, const char* name, float* value) noexcept;
int getXmlUllTypeParamAttribute(ZelXMLParser parser, void* node, const char* name,
                                unsigned long long* value) noexcept;
int getXmlStringTypeParamAttribute(ZelXMLParser parser, void* node, const char* name, char* value,
                                   int limit) noexcept;
int getXmlIntTypeParamByGetText(ZelXMLParser parser, void* node, int* value) noexcept;
int getXmlStringTypeParamByGetText(ZelXMLParser parser, void* node, char* value, int limit) noexcept;

inline void* ZelXMLParser::FirstChildElement(void* node, const char* name, std::size_t length) const noexcept
{
    const ZelXMLLookups* const fast = lookups();
    return fast ? fast->firstChild(document_, node, name, length) : FirstChildElement(node, name);
}

inline void* ZelXMLParser::NextSiblingElement(void* node, const char* name, std::size_t length) const noexcept
{
    const ZelXMLLookups* const fast = lookups();
    return fast ? fast->nextSibling(document_, node, name, length) : NextSiblingElement(node, name);
}

inline const char* ZelXMLParser::Attribute(void* node, const char* name, std::size_t length,
                                           std::size_t* size) const noexcept
{
    if (const ZelXMLLookups* const fast = lookups())
        return fast->attribute(document_, node, name, length, size);
    const char* const value = Attribute(node, name);
    if (value)
        *size = std::strlen(value);
    return value;
}

inline bool ZelXMLParser::ReadInt(void* node, const char* name, std::size_t length, int* value) const noexcept
{
    const ZelXMLLookups* const fast = lookups();
    return fast ? fast->readInt(document_, node, name, length, value)
                : getXmlIntTypeParamAttribute(*this, node, name, value) == 0;
}

inline bool ZelXMLParser::ReadUInt(void* node, const char* name, std::size_t length,
                                   unsigned int* value) const noexcept
{
    const ZelXMLLookups* const fast = lookups();
    return fast ? fast->readUInt(document_, node, name, length, value)
                : getXmlUIntTypeParamAttribute(*this, node, name, value) == 0;
}

inline bool ZelXMLParser::ReadUChar(void* node, const char* name, std::size_t length,
                                    unsigned char* value) const noexcept
{
    const ZelXMLLookups* const fast = lookups();
    return fast ? fast->readUChar(document_, node, name, length, value)
                : getXmlUCharTypeParamAttribute(*this, node, name, value) == 0;
}

inline bool ZelXMLParser::ReadUll(void* node, const char* name, std::size_t length,
                                  unsigned long long* value) const noexcept
{
    const ZelXMLLookups* const fast = lookups();
    return fast ? fast->readUll(document_, node, name, length, value)
                : getXmlUllTypeParamAttribute(*this, node, name, value) == 0;
}

inline bool ZelXMLParser::ReadString(void* node, const char* name, std::size_t length, char* value,
                                     std::size_t limit) const noexcept
{
    if (const ZelXMLLookups* const fast = lookups())
        return fast->readString(document_, node, name, length, value, limit);
    const int most = limit < INT_MAX ? static_cast<int>(limit) : INT_MAX;
    return getXmlStringTypeParamAttribute(*this, node, name, value, most) == 0;
}

#endif
