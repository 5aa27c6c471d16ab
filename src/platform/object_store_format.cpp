#include "platform/object_store_format.h"

#include <cerrno>
#include <climits>
#include <cmath>
#include <cwchar>

namespace {

const size_t kMaxPropertiesPerRecord = 0xFFFF;  // a WORD counts them

int HexDigit(wchar_t c) {
    if (c >= L'0' && c <= L'9') return c - L'0';
    if (c >= L'a' && c <= L'f') return c - L'a' + 10;
    if (c >= L'A' && c <= L'F') return c - L'A' + 10;
    return -1;
}

bool HasHexPrefix(const std::wstring& text, size_t at) {
    return text.size() > at + 1 && text[at] == L'0' && (text[at + 1] == L'x' || text[at + 1] == L'X');
}

// Unsigned number, decimal or 0x hexadecimal, the whole text; fails above `limit`.
bool ParseUnsigned(const std::wstring& text, size_t at, unsigned long long limit, unsigned long long* value) {
    int base = HasHexPrefix(text, at) ? 16 : 10;
    if (base == 16) at += 2;
    if (at >= text.size()) return false;
    unsigned long long result = 0;
    for (; at < text.size(); ++at) {
        int digit = HexDigit(text[at]);
        if (digit < 0 || digit >= base) return false;
        if (result > (limit - digit) / base) return false;
        result = result * base + digit;
    }
    *value = result;
    return true;
}

bool ParseSigned(const std::wstring& text, long long minimum, long long maximum, long long* value) {
    bool negative = !text.empty() && text[0] == L'-';
    unsigned long long magnitude;
    unsigned long long limit = negative ? static_cast<unsigned long long>(-(minimum + 1)) + 1 : maximum;
    if (!ParseUnsigned(text, negative ? 1 : 0, limit, &magnitude)) return false;
    *value = negative ? -static_cast<long long>(magnitude - 1) - 1 : static_cast<long long>(magnitude);
    return true;
}

bool ParseUnsignedValue(const std::wstring& text, unsigned long long limit, long long* value) {
    unsigned long long result;
    if (!ParseUnsigned(text, 0, limit, &result)) return false;
    *value = static_cast<long long>(result);
    return true;
}

bool ParseReal(const std::wstring& text, double* value) {
    if (text.empty() || iswspace(text[0])) return false;
    wchar_t* end = nullptr;
    errno = 0;
    double result = wcstod(text.c_str(), &end);
    if (end != text.c_str() + text.size() || errno == ERANGE || !std::isfinite(result)) return false;
    *value = result;
    return true;
}

std::wstring Unescape(const std::wstring& text) {
    std::wstring result;
    result.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        wchar_t c = text[i];
        if (c == L'\\' && i + 1 < text.size()) {
            wchar_t next = text[i + 1];
            wchar_t meant = next == L't' ? L'\t' : next == L'n' ? L'\n' : next == L'r' ? L'\r' : next == L'\\' ? L'\\' : 0;
            if (meant) {
                result.push_back(meant);
                ++i;
                continue;
            }
        }
        result.push_back(c);
    }
    return result;
}

bool ParseBlob(const std::wstring& text, std::vector<BYTE>* bytes) {
    if (text.size() % 2) return false;
    for (size_t i = 0; i < text.size(); i += 2) {
        int high = HexDigit(text[i]);
        int low = HexDigit(text[i + 1]);
        if (high < 0 || low < 0) return false;
        bytes->push_back(static_cast<BYTE>(high * 16 + low));
    }
    return true;
}

bool ParseValue(const std::wstring& text, StoredProperty* property) {
    switch (TypeFromPropID(property->id)) {
    case CEVT_I2:
        return ParseSigned(text, SHRT_MIN, SHRT_MAX, &property->integer);
    case CEVT_I4:
    case CEVT_BOOL:
        if (!ParseSigned(text, INT_MIN, INT_MAX, &property->integer)) return false;
        if (TypeFromPropID(property->id) == CEVT_BOOL) property->integer = property->integer ? TRUE : FALSE;
        return true;
    case CEVT_UI2:
        return ParseUnsignedValue(text, USHRT_MAX, &property->integer);
    case CEVT_UI4:
        return ParseUnsignedValue(text, UINT_MAX, &property->integer);
    case CEVT_FILETIME: {
        unsigned long long value;
        if (!ParseUnsigned(text, 0, ULLONG_MAX, &value)) return false;
        property->integer = static_cast<long long>(value);
        return true;
    }
    case CEVT_R8:
        return ParseReal(text, &property->real);
    case CEVT_LPWSTR:
        property->text = Unescape(text);
        return true;
    case CEVT_BLOB:
        return ParseBlob(text, &property->bytes);
    }
    return false;
}

bool ParseField(const std::wstring& field, StoredProperty* property) {
    size_t equals = field.find(L'=');
    if (equals == std::wstring::npos) return false;
    std::wstring idText = field.substr(0, equals);
    size_t digits = idText.size() - (HasHexPrefix(idText, 0) ? 2 : 0);
    if (digits == 0 || digits > 8) return false;
    std::wstring hexId = HasHexPrefix(idText, 0) ? idText : L"0x" + idText;
    unsigned long long id;
    if (!ParseUnsigned(hexId, 0, UINT_MAX, &id)) return false;
    property->id = static_cast<CEPROPID>(id);
    return ParseValue(field.substr(equals + 1), property);
}

bool HasId(const StoredRecord& record, CEPROPID id) {
    for (const StoredProperty& property : record.properties) {
        if (HIWORD(property.id) == HIWORD(id)) return true;
    }
    return false;
}

std::wstring Utf8ToWide(const char* bytes, size_t size) {
    if (size == 0 || size > INT_MAX) return std::wstring();
    int length = MultiByteToWideChar(CP_UTF8, 0, bytes, static_cast<int>(size), nullptr, 0);
    std::wstring text(static_cast<size_t>(length), L'\0');
    if (length > 0) MultiByteToWideChar(CP_UTF8, 0, bytes, static_cast<int>(size), &text[0], length);
    return text;
}

void ParseLine(const std::wstring& line, std::vector<StoredRecord>* records) {
    if (line.empty() || line[0] == L'#') return;
    StoredRecord record;
    size_t start = 0;
    while (start <= line.size() && record.properties.size() < kMaxPropertiesPerRecord) {
        size_t tab = line.find(L'\t', start);
        if (tab == std::wstring::npos) tab = line.size();
        StoredProperty property;
        if (ParseField(line.substr(start, tab - start), &property) && !HasId(record, property.id)) {
            record.properties.push_back(std::move(property));
        }
        start = tab + 1;
    }
    if (record.properties.empty()) return;
    record.oid = kFirstRecordOid + static_cast<CEOID>(records->size()) + 1;
    records->push_back(std::move(record));
}

}  // namespace

std::vector<StoredRecord> ParseObjectStoreText(const char* bytes, size_t size) {
    if (size >= 3 && static_cast<unsigned char>(bytes[0]) == 0xEF && static_cast<unsigned char>(bytes[1]) == 0xBB &&
        static_cast<unsigned char>(bytes[2]) == 0xBF) {
        bytes += 3;
        size -= 3;
    }
    std::wstring text = Utf8ToWide(bytes, size);
    std::vector<StoredRecord> records;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find(L'\n', start);
        if (end == std::wstring::npos) end = text.size();
        size_t stop = end > start && text[end - 1] == L'\r' ? end - 1 : end;
        ParseLine(text.substr(start, stop - start), &records);
        start = end + 1;
    }
    return records;
}
