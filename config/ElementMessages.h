// ElementMessages.h: the failure messages of the configuration elements and
// their delivery to the debug dump callback.
//
// Contract: the texts are fixed by the binary contract, word for word: the
// agent's logs are read by them. Every text begins "JSONManager: " and is
// built here from its parts, so the wording (including its double blanks and
// its "parama") exists once.
#ifndef ZELT_CONFIG_ELEMENTMESSAGES_H
#define ZELT_CONFIG_ELEMENTMESSAGES_H

#include <string>

namespace VextorJSConfig {

// Sends text to the debug dump callback if one is set at this moment.
void DeliverMessage(const std::wstring& text);

// Delivers text and returns the element failure code (-101).
int ReportFailure(const std::wstring& text);

namespace Message {
std::wstring WriteNoManager();
std::wstring ReadNoManager();
// The element's own node could not be created (or a list got no parent).
std::wstring ElementNodeMissing(const wchar_t* element);
// What failed for a child or a list entry.
enum class ChildFailure {
    WriteRequired,
    WriteOptional,
    WriteListEntry,
    ReadRequired,
    ReadOptional,
    ReadListEntry,
};
std::wstring Child(ChildFailure failure, const wchar_t* child);
// What failed for an attribute. WriteString serves optional strings too: the
// format has no optional-string text.
enum class AttributeFailure {
    WriteRequiredDWORD,
    WriteOptionalDWORD,
    WriteString,
    ReadRequiredDWORD,
    ReadRequiredString,
    SetNull,
};
std::wstring Attribute(AttributeFailure failure, const wchar_t* element, const wchar_t* key);
std::wstring SetChildNull(const wchar_t* child);
}  // namespace Message

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_ELEMENTMESSAGES_H
