#include "StructuralSimilarity.h"

namespace {

constexpr int WindowSize = 8;
constexpr int Stride = 4;
constexpr double Range = 255;
constexpr double MeanConstant = 0.01 * Range * 0.01 * Range;
constexpr double VarianceConstant = 0.03 * Range * 0.03 * Range;
constexpr double LeastVariance = 1; // of a window that shows something

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
    for (int row = y; row < y + WindowSize; ++row) {
        const uchar* leftPixels = left.constScanLine(row) + x;
        const uchar* rightPixels = right.constScanLine(row) + x;
        for (int column = 0; column < WindowSize; ++column) {
            const double one = leftPixels[column];
            const double other = rightPixels[column];
            window.leftMean += one;
            window.rightMean += other;
            leftSquares += one * one;
            rightSquares += other * other;
            products += one * other;
        }
    }
    constexpr double count = WindowSize * WindowSize;
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
        (2 * window.leftMean * window.rightMean + MeanConstant) /
        (window.leftMean * window.leftMean + window.rightMean * window.rightMean + MeanConstant);
    const double structure = (2 * window.covariance + VarianceConstant) /
                             (window.leftVariance + window.rightVariance + VarianceConstant);
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
    for (int y = 0; y + WindowSize <= left.height(); y += Stride) {
        for (int x = 0; x + WindowSize <= left.width(); x += Stride) {
            const Window window = windowAt(leftGrey, rightGrey, x, y);
            if (window.leftVariance > LeastVariance || window.rightVariance > LeastVariance) {
                sum += similarity(window);
                ++count;
            }
        }
    }
    return count == 0 ? 1 : sum / count;
}
