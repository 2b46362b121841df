// SPDX-License-Identifier: MIT
#include "StructuralSimilarity.h"

namespace {

constexpr int windowSize = 8;
constexpr int stride = 4;
constexpr double range = 255;
constexpr double meanConstant = 0.01 * range * 0.01 * range;
constexpr double varianceConstant = 0.03 * range * 0.03 * range;
constexpr double leastVariance = 1; // of a window that shows something

struct Window
{
    double leftMean = 0;
    double rightMean = 0;
    double leftVariance = 0;
    double rightVariance = 0;
    double covariance = 0;
};

Window windowAt(const QImage& left, const QImage& right, int x, int y)
{
    Window window;
    double leftSquares = 0;
    double rightSquares = 0;
    double products = 0;
    for (int row = y; row < y + windowSize; ++row) {
        const uchar* leftPixels = left.constScanLine(row) + x;
        const uchar* rightPixels = right.constScanLine(row) + x;
        for (int column = 0; column < windowSize; ++column) {
            const double one = leftPixels[column];
            const double other = rightPixels[column];
            window.leftMean += one;
            window.rightMean += other;
            leftSquares += one * one;
            rightSquares += other * other;
            products += one * other;
        }
    }
    constexpr double count = windowSize * windowSize;
    window.leftMean /= count;
    window.rightMean /= count;
    window.leftVariance = leftSquares / count - window.leftMean * window.leftMean;
    window.rightVariance = rightSquares / count - window.rightMean * window.rightMean;
    window.covariance = products / count - window.leftMean * window.rightMean;
    return window;
}

double similarity(const Window& window)
{
    const double means =
        (2 * window.leftMean * window.rightMean + meanConstant) /
        (window.leftMean * window.leftMean + window.rightMean * window.rightMean + meanConstant);
    const double structure = (2 * window.covariance + varianceConstant) /
                             (window.leftVariance + window.rightVariance + varianceConstant);
    return means * structure;
}

} // namespace

double structuralSimilarity(const QImage& left, const QImage& right)
{
    if (left.size() != right.size() || left.isNull()) {
        return 0;
    }
    const QImage leftGrey = left.convertToFormat(QImage::Format_Grayscale8);
    const QImage rightGrey = right.convertToFormat(QImage::Format_Grayscale8);
    double sum = 0;
    int count = 0;
    for (int y = 0; y + windowSize <= left.height(); y += stride) {
        for (int x = 0; x + windowSize <= left.width(); x += stride) {
            const Window window = windowAt(leftGrey, rightGrey, x, y);
            if (window.leftVariance > leastVariance || window.rightVariance > leastVariance) {
                sum += similarity(window);
                ++count;
            }
        }
    }
    return count == 0 ? 1 : sum / count;
}
