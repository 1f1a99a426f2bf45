// Vectors, matrices, scaling and set cover.
#include "utility/utility.hpp"

#include "support/check.hpp"
#include "support/exact.hpp"
#include "support/target.hpp"
#include "utility/vector/plain.hpp"

#include <cmath>

namespace {

using wavepitch::utility::scaleRatio;

Exact<double> shortVector(Bytes& bytes) {
    return exactDoubles(bytes, bytes.length(1, 80));
}

void elementwise(Bytes& bytes) {
    Exact<double> values = exactDoubles(bytes, bytes.length(1, 200));
    const int n = values.length();
    Exact<int> rounded(n);
    double2intVec(values.data(), n, rounded.data());
    for (int i = 0; i < n; ++i) requireSame(rounded[i], myRound(values[i]), "rounding");
    Exact<double> again(n);
    int2doubleVec(rounded.data(), n, again.data());
    double2intVec(again.data(), n, rounded.data());
    for (int i = 0; i < n; ++i) requireSame(static_cast<double>(rounded[i]), again[i], "there and back");
    returns([&] { replaceZeroWithPrevOne(values.data(), n); });
    gaussianLog(values[0], bytes.anyDouble(), bytes.anyDouble());
    truncateToInt(values[0]);
    myRound(static_cast<float>(bytes.anyInt()));
    intDiv(bytes.anyInt(), bytes.anyInt());
}

void coding(Bytes& bytes) {
    const std::string before = bytes.text(bytes.below(70));
    const std::string key = bytes.text(bytes.below(9));
    Exact<char> buffer{std::span<const char>(before)};
    const Exact<char> exactKey{std::span<const char>(key)};
    for (int i = 0; i < 2; ++i) encodeXor(buffer.data(), buffer.length(), exactKey.data(), exactKey.length());
    requireSameList(buffer, before, "coded twice");
}

template <typename T>
void medianOf(const Exact<double>& values) {
    Exact<T> narrow(values.length());
    for (int i = 0; i < values.length(); ++i)
        narrow[i] = static_cast<T>(std::isfinite(values[i]) ? std::clamp(values[i], -32768.0, 32767.0) : 0);
    const T median = vecMedian(narrow.data(), narrow.length());
    requireSame(vecMedianInPlace(narrow.data(), narrow.length()), median, "the median in place");
}

/// The definition takes n^2 steps.
void median(Bytes& bytes) {
    Exact<double> values = exactDoubles(bytes, bytes.length(1, bytes.below(20) == 0 ? 2100 : 200));
    if (bytes.flag()) std::sort(values.begin(), values.end(), [](double a, double b) { return a < b; });
    const double expected = medianByDefinition(values.copy());
    medianOf<int>(values);
    medianOf<short>(values);
    medianOf<float>(values);
    requireSame(vecMedian(values.data(), values.length()), expected, "the median");
    requireSame(vecMedianInPlace(values.data(), values.length()), expected, "the median in place");
}

void countingMedian(Bytes& bytes) {
    const int bins = bytes.length(1, 50);
    Exact<int> values(bytes.length(1, 60));
    const bool outside = bytes.below(4) == 0;
    for (int& x : values) x = outside ? bytes.anyInt() : bytes.below(bins);
    Exact<int> histogram(bins);
    const int found = vecMedianByCounting(values.data(), values.length(), histogram.data(), bins);
    for (int& x : values) x = std::clamp(x, 0, bins - 1);
    std::sort(values.begin(), values.end());
    const int upper = values[values.length() / 2];
    const bool isAlone = values.length() % 2 == 0 && std::count(values.begin(), values.end(), upper) == 1;
    const int lower = isAlone ? values[values.length() / 2 - 1] : upper;
    requireSame(found, (lower + upper) / 2, "the median by counting");
    vecMedianByCounting(values.data(), values.length(), histogram.data(), bytes.from(-1, 0));
}

void resampling(Bytes& bytes) {
    const Exact<double> in = exactDoubles(bytes, bytes.length(0, 200));
    const int inLen = in.length();
    const int outLen = bytes.length(0, 400);
    Exact<double> out(outLen, 4711);
    vecResample(in.data(), inLen, out.data(), outLen);
    for (int i = 1; inLen > 1 && i < outLen - 1; ++i) {
        const double position = static_cast<double>(i) * (inLen - 1) / (outLen - 1);
        const auto j = static_cast<int>(std::int64_t{i} * (inLen - 1) / (outLen - 1));
        const double part = position - j;
        requireSame(out[i], (1.0 - part) * in[j] + part * in[j + 1], "a point between two");
    }
    if (inLen > 0 && outLen > 0) requireSame(out[outLen - 1], in[inLen - 1], "the last point");
    const Exact<int> ints = exactInts(bytes, inLen);
    Exact<int> intsOut(outLen, 4711);
    vecResampleInt(ints.data(), inLen, intsOut.data(), outLen);
    if (inLen > 0 && outLen > 1) requireSame(intsOut[0], ints[0], "the first point");
}

void searching(Bytes& bytes) {
    Exact<int> boundaries = exactInts(bytes, bytes.length(0, 70));
    std::sort(boundaries.begin(), boundaries.end());
    const int n = boundaries.length();
    const int value = bytes.flag() && n > 0 ? boundaries[bytes.below(n)] : bytes.anyInt();
    const int place = rangeSearchBinSub(value, boundaries.data(), 0, n - 1);
    require(place >= std::lower_bound(boundaries.begin(), boundaries.end(), value) - boundaries.begin() &&
                place <= std::upper_bound(boundaries.begin(), boundaries.end(), value) - boundaries.begin(),
            "an interval beside the value");
    tableLookupByRangeSearch(boundaries.data(), n, value, bytes.anyInt(), bytes.below(2));
    const Exact<double> table = exactDoubles(bytes, bytes.length(1, 40));
    const double minX = bytes.anyDouble();
    const double step = std::abs(bytes.anyDouble());
    const double maxX = bytes.flag() ? minX + step * (table.length() - 1) : bytes.anyDouble();
    tableLookupByDirectMapping(table.data(), table.length(), bytes.anyDouble(), minX, maxX, step);
}

void sorting(Bytes& bytes) {
    const Exact<double> before = exactDoubles(bytes, bytes.length(1, 300));
    Exact<double> values = before;
    Exact<int> index(values.length());
    for (int i = 0; i < index.length(); ++i) index[i] = i;
    quickSort(values.data(), 0, values.length() - 1, index.data());
    for (int i = 0; i < index.length(); ++i)
        requireSame(values[i], before[index[i]], "the value of an index");
    const bool isOrdered = std::none_of(values.begin(), values.end(), [](double x) { return std::isnan(x); });
    require(!isOrdered || std::is_sorted(values.begin(), values.end()), "sorted values");
    doubleSortFunction(&before[0], &values[0]);
    const int a = bytes.anyInt();
    const int b = bytes.anyInt();
    requireSame(intSortFunction(&a, &b), a < b ? -1 : int(a > b), "the order of ints");
}

/// The plain search, offsets by the median's definition.
void shiftDistance(Bytes& bytes) {
    const Exact<double> a = shortVector(bytes);
    const Exact<double> b = shortVector(bytes);
    const int type = bytes.from(1, 2);
    double shift = 4711;
    int position = 4711;
    const double distance = lrShiftDist(a.data(), a.length(), b.data(), b.length(), type, shift, position);
    const bool isFirstShorter = a.length() <= b.length();
    const Exact<double>& shorter = isFirstShorter ? a : b;
    const Exact<double>& longer = isFirstShorter ? b : a;
    const int n = shorter.length();
    double best = noMatchDistance;
    double bestOffset = 4711;
    int bestPosition = -1;
    for (int i = 0; i + n <= longer.length(); ++i) {
        Doubles difference;
        double sum = 0;
        for (int k = 0; k < n; ++k) difference.push_back(shorter[k] - longer[i + k]);
        for (const double x : difference) sum += x;
        const double offset = type == 1 ? medianByDefinition(difference) : sum / n;
        sum = 0;
        for (int k = 0; k < n; ++k) {
            const double rest = (shorter[k] - offset) - longer[i + k];
            sum += type == 1 ? std::abs(rest) : rest * rest;
        }
        if (!(sum < best)) continue;
        best = sum;
        bestOffset = offset;
        bestPosition = i;
    }
    requireSame(distance, best, "the smallest distance");
    requireSame(position, bestPosition, "its position");
    requireSame(shift, bestOffset, "its shift");
    returns([&] { lrShiftDist(a.data(), bytes.below(2), b.data(), 1, bytes.anyInt(), shift, position); });
}

/// The work arrays are as long as the reference, at which the scan ends.
void scaling(Bytes& bytes) {
    const Exact<double> query = shortVector(bytes);
    const Exact<double> reference = shortVector(bytes);
    const int resolution = bytes.from(-1, 20);
    const double lower = bytes.flag() ? bytes.from(1, 20) / 10.0 : bytes.anyDouble();
    const double upper = bytes.flag() ? lower + bytes.below(20) / 10.0 : bytes.anyDouble();
    const int type = bytes.from(1, 2);
    Exact<double> distance(resolution);
    Exact<double> shift(resolution);
    Exact<double> scaled(reference.length());
    Exact<double> difference(reference.length());
    int best = 0;
    const double found = linearScaling(query.data(), query.length(), reference.data(), reference.length(),
                                       lower, upper, resolution, type, distance.data(), scaled.data(), best);
    requireSame(found, resolution < 1 ? noMatchDistance : distance[best], "the best scale's distance");
    const double cutoff = bytes.flag() ? HUGE_VAL : bytes.anyDouble();
    returns([&] {
        linearScaling(query.data(), query.length(), reference.data(), reference.length(), lower, upper,
                      resolution, bytes.from(1, 3), distance.data(), shift.data(), scaled.data(),
                      difference.data(), best, cutoff);
    });
    SCALEDVECSET set;
    if (!returns(
            [&] { linearScaledVecCreate(query.data(), query.length(), lower, upper, resolution, &set); }))
        return;
    const std::unique_ptr<SCALEDVECSET, decltype(&linearScaledVecFree)> owner(&set, linearScaledVecFree);
    for (int i = 0; i < resolution; ++i) require(set.scaledVecLen[i] <= set.vecMaxLen, "a scale in its row");
    linearScaling2(&set, reference.data(), reference.length(), type, distance.data(), shift.data(), nullptr,
                   difference.data(), best, cutoff);
}

void cover(Bytes& bytes) {
    const int rowNum = bytes.length(1, 20);
    const int colNum = bytes.length(1, 20);
    Exact<double> sets(rowNum * colNum);
    const int most = bytes.from(1, 40);
    const bool any = bytes.below(4) == 0;
    for (double& element : sets) element = any ? bytes.anyDouble() : bytes.below(most);
    const int maxSetNum = bytes.from(-1, rowNum + 2);
    Exact<int> chosen(maxSetNum);
    Exact<double> coverage(maxSetNum);
    const int count = setCover(sets.data(), rowNum, colNum, maxSetNum, chosen.data(), coverage.data());
    require(count <= std::min(std::max(maxSetNum, 0), rowNum), "no more sets than there are");
    for (int i = 0; i < count; ++i) {
        require(chosen[i] >= 0 && chosen[i] < rowNum, "a set that there is");
        require(coverage[i] <= 1 && (i == 0 || coverage[i] > coverage[i - 1]), "a set that covers more");
    }
}

void matrix(Bytes& bytes) {
    const int rows = bytes.flag() ? bytes.from(-1, 40) : bytes.anyInt();
    const int columns = bytes.flag() ? bytes.from(-1, 40) : bytes.anyInt();
    const int size = bytes.oneOf({-1, 0, 1, 4, 8, 2147483647});
    const bool isFis = bytes.flag();
    void** created = nullptr;
    constexpr double most = 1 << 25; // bytes that there is room for in one piece
    const double rowSize = std::max(1.0, static_cast<double>(columns) * size);
    if (rows > 2000 || (rowSize <= most && rows * rowSize > most)) return; // there is room, by and by
    returns([&] { created = isFis ? fisCreateMatrix(rows, columns, size) : matCreate(rows, columns, size); });
    if (!created) return;
    for (int r = 0; r < rows; ++r) {
        const auto* row = static_cast<const char*>(created[r]);
        for (std::int64_t i = 0; i < std::min<std::int64_t>(std::int64_t{columns} * size, 5000); ++i)
            require(row[i] == 0, "a matrix of zeros");
    }
    if (isFis)
        fisFreeMatrix(created, rows);
    else
        matFree(created, rows);
}

} // namespace

void fuzz(Bytes& bytes) {
    constexpr void (*calls[])(Bytes&) = {elementwise,   coding,    median,  countingMedian,
                                         resampling,    searching, sorting, scaling,
                                         shiftDistance, cover,     matrix};
    calls[bytes.below(static_cast<int>(std::size(calls)))](bytes);
}
