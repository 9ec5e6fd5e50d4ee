#include "series/Fft.h"

#include <cmath>
#include <numbers>
#include <utility>

#include "series/Lanes.h"

CFft::CFft(std::size_t size) : m_size(size), m_reverse(size), m_wr(size), m_wi(size) {
    int bits = 0;
    while ((std::size_t{1} << bits) < size) ++bits;
    for (std::size_t i = 0; i < size; ++i) {
        std::uint32_t r = 0;
        for (int b = 0; b < bits; ++b)
            if (i & (std::size_t{1} << b)) r |= std::uint32_t{1} << (bits - 1 - b);
        m_reverse[i] = r;
    }
    for (std::size_t h = 1; h < size; h <<= 1) {
        for (std::size_t j = 0; j < h; ++j) {
            double angle = std::numbers::pi * static_cast<double>(j) / static_cast<double>(h);
            m_wr[h + j] = std::cos(angle);
            m_wi[h + j] = -std::sin(angle);
        }
    }
}

void CFft::Forward(double* re, double* im) const {
    const std::size_t n = m_size;
    for (std::size_t i = 0; i < n; ++i) {
        std::size_t r = m_reverse[i];
        if (r > i) {
            std::swap(re[i], re[r]);
            std::swap(im[i], im[r]);
        }
    }
    ForwardReversed(re, im);
}

void CFft::ForwardReversed(double* re, double* im) const {
    const std::size_t n = m_size;
    // Lengths 2 and 4 have trivial twiddles; doing them apart keeps the inner
    // loop of the general stages long.
    for (std::size_t i = 0; i < n; i += 2) {
        double ar = re[i], ai = im[i], br = re[i + 1], bi = im[i + 1];
        re[i] = ar + br;
        im[i] = ai + bi;
        re[i + 1] = ar - br;
        im[i + 1] = ai - bi;
    }
    ForwardReversedPaired(re, im);
}

void CFft::ForwardReversedPaired(double* re, double* im) const {
    const std::size_t n = m_size;
    if (n >= 4) {
        for (std::size_t i = 0; i < n; i += 4) {
            double ar = re[i], ai = im[i], br = re[i + 2], bi = im[i + 2];
            re[i] = ar + br;
            im[i] = ai + bi;
            re[i + 2] = ar - br;
            im[i + 2] = ai - bi;
            // Twiddle -i.
            double cr = re[i + 1], ci = im[i + 1], dr = im[i + 3], di = -re[i + 3];
            re[i + 1] = cr + dr;
            im[i + 1] = ci + di;
            re[i + 3] = cr - dr;
            im[i + 3] = ci - di;
        }
    }
    for (std::size_t h = 4; h < n; h <<= 1) Stage(re, im, h);
}

namespace {

// The butterflies of one stage: a twiddled b is subtracted from and added to a.
template <typename L>
void Butterflies(double* re, double* im, const double* wr, const double* wi, std::size_t n, std::size_t h) {
    for (std::size_t i = 0; i < n; i += 2 * h) {
        double* ar = re + i;
        double* ai = im + i;
        double* br = re + i + h;
        double* bi = im + i + h;
        for (std::size_t j = 0; j < h; j += kLaneCount<L>) {
            L xbr, xbi, xar, xai, xwr, xwi;
            lanes_Load(xbr, br + j);
            lanes_Load(xbi, bi + j);
            lanes_Load(xar, ar + j);
            lanes_Load(xai, ai + j);
            lanes_Load(xwr, wr + j);
            lanes_Load(xwi, wi + j);
            const L xr = xbr * xwr - xbi * xwi;
            const L xi = xbr * xwi + xbi * xwr;
            lanes_Store(br + j, L(xar - xr));
            lanes_Store(bi + j, L(xai - xi));
            lanes_Store(ar + j, L(xar + xr));
            lanes_Store(ai + j, L(xai + xi));
        }
    }
}

#ifdef OPROC_LANES_X86
OPROC_AVX void ButterfliesAvx(double* re, double* im, const double* wr, const double* wi, std::size_t n,
                              std::size_t h) {
    Butterflies<Lanes4>(re, im, wr, wi, n, h);
}
#endif

// Stages from h = 4 on hold whole vectors of any width used here.
void StageFor(double* re, double* im, const double* wr, const double* wi, std::size_t n, std::size_t h) {
#ifdef OPROC_LANES_X86
    if (lanes_HaveAvx())
        ButterfliesAvx(re, im, wr, wi, n, h);
    else
        Butterflies<Lanes2>(re, im, wr, wi, n, h);
#else
    Butterflies<Lanes1>(re, im, wr, wi, n, h);
#endif
}

}  // namespace

void CFft::Stage(double* re, double* im, std::size_t h) const {
    StageFor(re, im, m_wr.data() + h, m_wi.data() + h, m_size, h);
}
