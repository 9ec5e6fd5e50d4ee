// The numbers of the text conversions. Any bytes parse without reading past
// their end; any double (and any float) written as text reads back to the
// same bits, NaN payloads and signed zeros included.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "convert/TextNumbers.h"

namespace {

void Check(bool ok) {
    if (!ok) std::abort();
}

void RoundTrip(double v, bool single) {
    char text[kNumberTextMax];
    const std::size_t n = conv_FormatNumber(text, v, single);
    Check(n > 0 && n <= kNumberTextMax);
    double back = 0.0;
    Check(conv_ParseNumber(text, text + n, single, &back) == text + n);
    Check(std::memcmp(&back, &v, sizeof v) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A copy of exactly the input's size, so that a read past its end is caught.
    char* text = static_cast<char*>(std::malloc(size ? size : 1));
    if (size) std::memcpy(text, data, size);
    for (bool single : {false, true}) {
        double v = 0.0;
        const char* end = conv_ParseNumber(text, text + size, single, &v);
        Check(!end || (end > text && end <= text + size));
    }
    std::free(text);

    if (size >= sizeof(double)) {
        double v;
        std::memcpy(&v, data, sizeof v);
        RoundTrip(v, false);
    }
    if (size >= sizeof(float)) {
        float f;
        std::memcpy(&f, data, sizeof f);
        RoundTrip(f, true);
    }
    return 0;
}
