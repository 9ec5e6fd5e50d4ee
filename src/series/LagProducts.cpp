#include "series/LagProducts.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "series/Fft.h"
#include "series/Lanes.h"

class CLagProducts::Engine {
public:
    virtual ~Engine() = default;
    virtual void Add(const double* values, std::size_t count) = 0;
    virtual std::vector<double> Finish() = 0;
};

namespace {

// acc[k] += y * w[k]: one term per lag, so each lag's sum keeps the order of t.
// Unrolled so that the compiler can pair the independent lags into vector
// registers.
void AddProducts(double* __restrict acc, const double* __restrict w, double y, int n) {
    int k = 0;
    for (; k + 4 <= n; k += 4) {
        acc[k] += y * w[k];
        acc[k + 1] += y * w[k + 1];
        acc[k + 2] += y * w[k + 2];
        acc[k + 3] += y * w[k + 3];
    }
    for (; k < n; ++k) acc[k] += y * w[k];
}

class DirectEngine : public CLagProducts::Engine {
public:
    explicit DirectEngine(int maxLag)
        : m_lags(maxLag),
          m_chunk(maxLag > 4096 ? static_cast<std::size_t>(maxLag) : 4096),
          m_history(m_chunk + static_cast<std::size_t>(maxLag)),
          m_pos(m_chunk),
          m_acc(static_cast<std::size_t>(maxLag)) {}

    void Add(const double* values, std::size_t count) override {
        for (std::size_t i = 0; i < count; ++i) {
            // The values before this one lie at m_history[m_pos], [m_pos + 1], ...
            // newest first, so lag k reads entry k - 1.
            int lags = m_seen < m_lags ? static_cast<int>(m_seen) : m_lags;
            AddProducts(m_acc.data(), m_history.data() + m_pos, values[i], lags);
            if (m_pos == 0) {
                std::memmove(m_history.data() + m_chunk, m_history.data(),
                             static_cast<std::size_t>(m_lags) * sizeof(double));
                m_pos = m_chunk;
            }
            m_history[--m_pos] = values[i];
            ++m_seen;
        }
    }

    std::vector<double> Finish() override {
        std::vector<double> acc(static_cast<std::size_t>(m_lags) + 1, 0.0);
        for (int k = 1; k <= m_lags; ++k) acc[static_cast<std::size_t>(k)] = m_acc[static_cast<std::size_t>(k - 1)];
        return acc;
    }

private:
    int m_lags;
    std::size_t m_chunk;
    std::vector<double> m_history;
    std::size_t m_pos;
    std::vector<double> m_acc;  // lag k at k - 1
    long m_seen = 0;
};

// The per-frequency sums of the transform below, over one transform of two blocks.
struct Sums {
    const double* re;
    const double* im;
    double* power;
    double* crossRe;
    double* crossIm;
    double* prevRe;
    double* prevIm;
};

// Frequencies f in [from, to), each with its mirror g = (m - f) mod m, read as
// a reversed vector ending at m - f.
template <typename L>
void Accumulate(const Sums& s, std::size_t from, std::size_t to, std::size_t m) {
    constexpr std::size_t w = kLaneCount<L>;
    for (std::size_t f = from; f < to; f += w) {
        const std::size_t g = (m - f - (w - 1)) & (m - 1);
        L zr, zi, cr, ci, power, crossRe, crossIm, pr, pi;
        lanes_Load(zr, s.re + f);
        lanes_Load(zi, s.im + f);
        lanes_Load(cr, s.re + g);
        lanes_Load(ci, s.im + g);
        lanes_Reverse(cr);
        lanes_Reverse(ci);
        // Unpack z = a + i b: A = (Z[f] + conj Z[-f]) / 2, B = (Z[f] - conj Z[-f]) / 2i.
        const L ar = 0.5 * (zr + cr), ai = 0.5 * (zi - ci);
        const L br = 0.5 * (zi + ci), bi = 0.5 * (cr - zr);
        lanes_Load(power, s.power + f);
        lanes_Store(s.power + f, L(power + ((ar * ar + ai * ai) + (br * br + bi * bi))));
        // conj(prev) A + conj(A) B
        lanes_Load(pr, s.prevRe + f);
        lanes_Load(pi, s.prevIm + f);
        lanes_Load(crossRe, s.crossRe + f);
        lanes_Load(crossIm, s.crossIm + f);
        lanes_Store(s.crossRe + f, L(crossRe + ((pr * ar + pi * ai) + (ar * br + ai * bi))));
        lanes_Store(s.crossIm + f, L(crossIm + ((pr * ai - pi * ar) + (ar * bi - ai * br))));
        lanes_Store(s.prevRe + f, br);
        lanes_Store(s.prevIm + f, bi);
    }
}

#ifdef OPROC_LANES_X86
OPROC_AVX void AccumulateAvx(const Sums& s, std::size_t from, std::size_t to, std::size_t m) {
    Accumulate<Lanes4>(s, from, to, m);
}
#endif

// Blocks j of B values, X_j their transforms of length M = 2B (zero padded).
// Pairs (t, t + k) with t in block j and k <= L <= B fall in blocks j and j + 1,
// and the sum over all of them is the inverse transform of
//     S = sum_j conj(X_j) (X_j + (-1)^f X_{j+1}),
// since block j + 1 placed B further on has the transform (-1)^f X_{j+1}.
// Two real blocks share one complex transform.
class FftEngine : public CLagProducts::Engine {
public:
    explicit FftEngine(int maxLag) : m_lags(maxLag), m_block(BlockFor(maxLag)), m_fft(2 * m_block) {
        std::size_t m = 2 * m_block;
        m_re.resize(m);
        m_im.resize(m);
        std::size_t half = m_block + 1;
        m_power.assign(half, 0.0);
        m_crossRe.assign(half, 0.0);
        m_crossIm.assign(half, 0.0);
        m_prevRe.assign(half, 0.0);
        m_prevIm.assign(half, 0.0);
    }

    // Values go straight to their bit-reversed places in the transform's
    // input, the first block of a pair in the real part and the second in the
    // imaginary part, each with the zero padding beside it.
    void Add(const double* values, std::size_t count) override {
        const std::size_t m = 2 * m_block;
        while (count > 0) {
            std::size_t take = m - m_filled;
            if (take > count) take = count;
            PlaceRange(m_filled, m_filled + take, values);
            m_filled += take;
            values += take;
            count -= take;
            if (m_filled == m) TransformPair();
        }
    }

    std::vector<double> Finish() override {
        if (m_filled > 0) {
            const std::vector<double> zeros(2 * m_block - m_filled, 0.0);
            PlaceRange(m_filled, 2 * m_block, zeros.data());
            TransformPair();
        }
        const std::size_t m = 2 * m_block;
        for (std::size_t f = 0; f <= m_block; ++f) {
            double sign = (f & 1) ? -1.0 : 1.0;
            m_re[f] = m_power[f] + sign * m_crossRe[f];
            m_im[f] = sign * m_crossIm[f];
        }
        // A real correlation has a conjugate-symmetric spectrum.
        for (std::size_t f = 1; f < m_block; ++f) {
            m_re[m - f] = m_re[f];
            m_im[m - f] = -m_im[f];
        }
        m_im[0] = 0.0;
        m_im[m_block] = 0.0;
        m_fft.Inverse(m_re.data(), m_im.data());
        std::vector<double> acc(static_cast<std::size_t>(m_lags) + 1);
        for (std::size_t k = 0; k < acc.size(); ++k) acc[k] = m_re[k] / static_cast<double>(m);
        return acc;
    }

    static std::size_t BlockFor(int maxLag) {
        std::size_t b = 64;
        while (b < static_cast<std::size_t>(maxLag)) b <<= 1;
        return b;
    }

private:
    // Values from..to of the pair (to <= 2B), one loop per block. Bit
    // reversal puts the zero padding of a block (positions B .. 2B - 1) on
    // the odd places.
    void PlaceRange(std::size_t from, std::size_t to, const double* values) {
        const std::size_t split = to < m_block ? to : m_block;
        double* re = m_re.data();
        for (std::size_t t = from; t < split; ++t, ++values) {
            const std::size_t r = m_fft.Reversed(t);
            re[r] = *values;
            re[r + 1] = 0.0;
        }
        double* im = m_im.data();
        for (std::size_t t = (from > m_block ? from : m_block); t < to; ++t, ++values) {
            const std::size_t r = m_fft.Reversed(t - m_block);
            im[r] = *values;
            im[r + 1] = 0.0;
        }
    }

    void TransformPair() {
        const std::size_t m = 2 * m_block;
        m_fft.ForwardReversed(m_re.data(), m_im.data());
        Sums sums{m_re.data(), m_im.data(), m_power.data(), m_crossRe.data(), m_crossIm.data(),
                  m_prevRe.data(), m_prevIm.data()};
        // Frequency 0 pairs with itself; 1 .. B pair with m - 1 .. B, whole vectors.
        Accumulate<Lanes1>(sums, 0, 1, m);
#ifdef OPROC_LANES_X86
        if (lanes_HaveAvx())
            AccumulateAvx(sums, 1, m_block + 1, m);
        else
            Accumulate<Lanes2>(sums, 1, m_block + 1, m);
#else
        Accumulate<Lanes1>(sums, 1, m_block + 1, m);
#endif
        m_filled = 0;
    }

    int m_lags;
    std::size_t m_block;
    CFft m_fft;
    std::size_t m_filled = 0;  // values placed for the next transform
    std::vector<double> m_re, m_im;
    std::vector<double> m_power, m_crossRe, m_crossIm;
    std::vector<double> m_prevRe, m_prevIm;  // transform of the latest block
};

// Measured with bench/CorrelogramBench.cpp on 10^6 values: a direct product
// costs about 0.5 ns; the blocked transform about 15 ns per value at L = 64
// (transform length 128) and 48 ns at L = 9999 (length 32768), i.e. some 4 to
// 5 direct products per value per log2 of the length. Rounded up in favour of
// the direct sum, the two meet near L = 35.
constexpr double kFftCostPerLog = 5.0;
// Below this many products (some 50 ms) the direct sum is kept whatever the
// lag range: it reproduces the ring buffer's sums to the last bit, where the
// transform's rounding (about 1e-14 of the variance) would show in the last
// printed digit of a covariance that is exactly 0.
constexpr double kSmallWork = 1e8;

}  // namespace

CLagProducts::Method CLagProducts::Choose(int maxLag, long count) {
    double direct = static_cast<double>(count) * maxLag;
    if (direct < kSmallWork) return Method::Direct;
    double fft = static_cast<double>(count) * kFftCostPerLog *
                 std::log2(2.0 * static_cast<double>(FftEngine::BlockFor(maxLag)));
    return fft < direct ? Method::Fft : Method::Direct;
}

CLagProducts::CLagProducts(int maxLag, Method method) : m_lags(static_cast<std::size_t>(maxLag)) {
    m_head.reserve(m_lags);
    m_tail.reserve(m_lags);
    if (method == Method::Fft) {
        m_engine = std::make_unique<FftEngine>(maxLag);
    } else {
        m_engine = std::make_unique<DirectEngine>(maxLag);
    }
}

CLagProducts::~CLagProducts() = default;

void CLagProducts::Add(const double* values, std::size_t count) {
    m_engine->Add(values, count);
    m_count += static_cast<long>(count);
    if (m_head.size() < m_lags) m_head.insert(m_head.end(), values, values + std::min(count, m_lags - m_head.size()));
    // Only the last L of this call can still be among the last L at the end.
    const std::size_t keep = std::min(count, m_lags);
    for (const double* v = values + (count - keep); v < values + count; ++v) {
        if (m_tail.size() < m_lags) {
            m_tail.push_back(*v);
        } else {
            m_tail[m_tailAt] = *v;
            if (++m_tailAt == m_lags) m_tailAt = 0;
        }
    }
}

std::vector<double> CLagProducts::Finish(double residual) {
    std::vector<double> acc = m_engine->Finish();
    if (residual == 0.0) return acc;
    // head[k] and tail[k]: sums of the first and of the last k values.
    double head = 0.0;
    double tail = 0.0;
    const std::size_t tailCount = m_tail.size();
    for (std::size_t k = 1; k <= m_lags && static_cast<long>(k) < m_count; ++k) {
        if (k <= m_head.size()) head += m_head[k - 1];
        if (k <= tailCount) tail += m_tail[(m_tailAt + tailCount - k) % tailCount];
        const double pairs = static_cast<double>(m_count) + static_cast<double>(k);
        acc[k] += residual * (head + tail) - pairs * residual * residual;
    }
    return acc;
}
