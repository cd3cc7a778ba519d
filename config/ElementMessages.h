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
std::wstring WriteRequiredChild(const wchar_t* child);
std::wstring WriteOptionalChild(const wchar_t* child);
std::wstring WriteListEntry(const wchar_t* entry);
std::wstring ReadRequiredChild(const wchar_t* child);
std::wstring ReadOptionalChild(const wchar_t* child);
std::wstring ReadListEntry(const wchar_t* entry);
std::wstring WriteRequiredDWORD(const wchar_t* element, const wchar_t* key);
std::wstring WriteOptionalDWORD(const wchar_t* element, const wchar_t* key);
// Used for optional strings too: the format has no optional-string text.
std::wstring WriteString(const wchar_t* element, const wchar_t* key);
std::wstring ReadRequiredDWORD(const wchar_t* element, const wchar_t* key);
std::wstring ReadRequiredString(const wchar_t* element, const wchar_t* key);
std::wstring SetAttributeNull(const wchar_t* element, const wchar_t* key);
std::wstring SetChildNull(const wchar_t* child);
}  // namespace Message

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_ELEMENTMESSAGES_H
