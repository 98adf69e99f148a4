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

/** What all handles of one document share. An XML service derives its own document from it. */
struct ZelXMLDocument
{
    int references;
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

private:
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

#endif
