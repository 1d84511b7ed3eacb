#pragma once

// Shared by the property-list reader and writer.
namespace PropertyListXml {

// Characters XML 1.0 cannot hold literally, not even as a character reference. The writer
// still writes them as references so that nothing the user typed is dropped; the reader
// accepts them again.
inline bool isForbidden(char32_t c)
{
    if (c < 0x20)
        return c != '\t' && c != '\n' && c != '\r';
    if (c >= 0xD800 && c <= 0xDFFF)
        return true;
    return c == 0xFFFE || c == 0xFFFF || c > 0x10FFFF;
}

} // namespace PropertyListXml
