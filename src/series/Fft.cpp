#include "series/Fft.h"

#include <cmath>
#include <numbers>
#include <utility>

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
    // Lengths 2 and 4 have trivial twiddles; doing them apart keeps the inner
    // loop of the general stages long.
    for (std::size_t i = 0; i < n; i += 2) {
        double ar = re[i], ai = im[i], br = re[i + 1], bi = im[i + 1];
        re[i] = ar + br;
        im[i] = ai + bi;
        re[i + 1] = ar - br;
        im[i + 1] = ai - bi;
    }
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
    for (std::size_t h = 4; h < n; h <<= 1) {
        const double* wr = m_wr.data() + h;
        const double* wi = m_wi.data() + h;
        for (std::size_t i = 0; i < n; i += 2 * h) {
            double* __restrict ar = re + i;
            double* __restrict ai = im + i;
            double* __restrict br = re + i + h;
            double* __restrict bi = im + i + h;
            for (std::size_t j = 0; j < h; ++j) {
                double xr = br[j] * wr[j] - bi[j] * wi[j];
                double xi = br[j] * wi[j] + bi[j] * wr[j];
                br[j] = ar[j] - xr;
                bi[j] = ai[j] - xi;
                ar[j] += xr;
                ai[j] += xi;
            }
        }
    }
}
