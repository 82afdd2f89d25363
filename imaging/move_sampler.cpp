#include "imaging/move_sampler.h"

#include <cstring>
#include <memory>
#include <new>

#include "imaging/interpolate.h"
#include "imaging/maths/sinc.h"
#include "imaging/maths/wrap.h"

namespace ruvex {
namespace {

// A kernel computes a Column from a source X and a Row from a source Y, and reads a pixel from
// both. If the matrix only scales and translates, the columns are the same for every row: they are
// computed once.

template <class P>
struct NearestKernel {
    using Column = std::int32_t;
    using Row = const P*;

    static Column column(const VxTexture<P>& source, float position) {
        return source.x.mapIndex(wrapSubtract(floorToInt(position), source.x.origin));
    }
    static Row row(const VxTexture<P>& source, float position) {
        const std::int32_t index =
            source.y.mapIndex(wrapSubtract(floorToInt(position), source.y.origin));
        return index == kNoPixel || !source.data ? nullptr : source.bufferRow(index);
    }
    static const P& read(const VxTexture<P>& source, const Column& column, const Row& row) {
        return row && column != kNoPixel ? row[column] : source.fill;
    }
};

template <class P>
struct BilinearKernel {
    using Column = AxisSample;
    using Row = SampleRows<P>;

    static Column column(const VxTexture<P>& source, float position) {
        return axisSample(source.x, position);
    }
    static Row row(const VxTexture<P>& source, float position) {
        return sampleRows(source, axisSample(source.y, position));
    }
    static Companion<P> read(const VxTexture<P>& source, const Column& column, const Row& row) {
        return interpolate<P, Companion<P>>(source.fill, column, row);
    }
};

template <class P>
struct SincKernel {
    using Column = SincAxis;
    using Row = SincAxis;

    static Column column(const VxTexture<P>& source, float position) {
        return sincAxis(source.x, position);
    }
    static Row row(const VxTexture<P>& source, float position) {
        return sincAxis(source.y, position);
    }
    static RgbaFloat read(const VxTexture<P>& source, const Column& column, const Row& row) {
        RgbaFloat sum{};
        if (column.nearWhole && row.nearWhole) {
            source.sample(sum, column.position, row.position);
            return sum;
        }
        for (int j = 0; j < kSincTaps; ++j) {
            const bool exists = row.index[j] != kNoPixel && source.data;
            const RgbaFloat line =
                alongRow(column, exists ? source.bufferRow(row.index[j]) : nullptr, source.fill);
            for (int k = 0; k < 4; ++k) sum.c[k] += line.c[k] * row.tap[j];
        }
        return sum;
    }

private:
    static RgbaFloat alongRow(const Column& column, const P* row, const P& fill) {
        RgbaFloat sum{};
        for (int i = 0; i < kSincTaps; ++i) {
            const P& pixel = row && column.index[i] != kNoPixel ? row[column.index[i]] : fill;
            for (int k = 0; k < 4; ++k) {
                sum.c[k] += static_cast<float>(pixel.c[k]) * column.tap[i];
            }
        }
        return sum;
    }
};

// The ways to write a sample (a storage pixel or its companion) into the Map.

template <class P>
using ComponentOf = typename PixelTraits<P>::Component;

struct StoreWhole {
    template <class P>
    void operator()(P& to, const P& sample) const {
        to = sample;
    }
};

struct StoreTruncated {
    template <class P>
    void operator()(P& to, const RgbaFloat& sample) const {
        for (int k = 0; k < 4; ++k) to.c[k] = storeTruncated<ComponentOf<P>>(sample.c[k]);
    }
};

struct StoreClamped {
    template <class P>
    void operator()(P& to, const RgbaFloat& sample) const {
        for (int k = 0; k < 4; ++k) to.c[k] = storeClamped<P>(sample.c[k]);
    }
};

template <class T>
void addWrapped(T& to, std::int32_t amount) {
    to = static_cast<T>(static_cast<std::uint32_t>(to) + static_cast<std::uint32_t>(amount));
}

struct AddWeighted {
    float weight;

    template <class P>
    void operator()(P& to, const P& sample) const {
        for (int k = 0; k < 4; ++k) {
            addWrapped(to.c[k], truncateToInt(static_cast<float>(sample.c[k]) * weight));
        }
    }
    template <class P>
    void operator()(P& to, const RgbaFloat& sample) const {
        P truncated;
        StoreTruncated{}(truncated, sample);
        (*this)(to, truncated);
    }
};

struct AddUnweighted {
    template <class P>
    void operator()(P& to, const RgbaFloat& sample) const {
        for (int k = 0; k < 4; ++k) {
            addWrapped(to.c[k], std::int32_t{storeTruncated<ComponentOf<P>>(sample.c[k])});
        }
    }
};

Homogeneous rowStart(const Matrix3& matrix, std::int32_t x, std::int32_t y) {
    return transform(matrix, static_cast<float>(x) + 0.5f, static_cast<float>(y) + 0.5f);
}

void stepRight(Homogeneous& position, const Matrix3& matrix) {
    position.sx += matrix[0];
    position.sy += matrix[1];
    position.sw += matrix[2];
}

template <class P>
bool axisAligned(const VxDualMoveSampler<P>& sampler) {
    return !sampler.perspective && sampler.matrix[1] == 0.0f && sampler.matrix[3] == 0.0f;
}

// The columns of all rows of the worker's share. Null if out of memory.
template <class Kernel, class P>
std::unique_ptr<typename Kernel::Column[]> columnTable(const VxDualMoveSampler<P>& sampler,
                                                       const VxTexture<P>& source,
                                                       const RowLoop& loop) {
    const std::int32_t width = loop.x1 - loop.x0;
    std::unique_ptr<typename Kernel::Column[]> columns(
        new (std::nothrow) typename Kernel::Column[static_cast<std::size_t>(width)]);
    if (!columns) return nullptr;
    Homogeneous position = rowStart(sampler.matrix, loop.x0, loop.first);
    for (std::int32_t i = 0; i < width; ++i, stepRight(position, sampler.matrix)) {
        columns[static_cast<std::size_t>(i)] = Kernel::column(source, position.sx);
    }
    return columns;
}

// Does nothing and returns false if there is no memory for the table of columns.
template <class Kernel, class P, class Store>
bool moveAlignedRows(VxDualMoveSampler<P>& sampler, VxTexture<P>& source, VxTexture<P>& target,
                     Store store) {
    const RowLoop loop = sampler.rowLoop();
    if (loop.first >= loop.end || loop.x0 >= loop.x1) return true;
    const auto columns = columnTable<Kernel>(sampler, source, loop);
    if (!columns) return false;
    const std::int32_t width = loop.x1 - loop.x0;
    for (std::int32_t y = loop.first; y < loop.end; y += loop.step) {
        if (interruptCheck(sampler.interrupt)) return true;
        const auto row = Kernel::row(source, rowStart(sampler.matrix, loop.x0, y).sy);
        P* to = target.writeAt(loop.x0, y);
        for (std::int32_t i = 0; i < width; ++i) {
            store(to[i], Kernel::read(source, columns[static_cast<std::size_t>(i)], row));
        }
    }
    return true;
}

// Calls pixel(to, x, y, position) along every row of the worker's share.
template <class P, class Pixel>
void walkRows(VxDualMoveSampler<P>& sampler, VxTexture<P>& target, Pixel pixel) {
    const RowLoop loop = sampler.rowLoop();
    if (loop.x0 >= loop.x1) return;
    for (std::int32_t y = loop.first; y < loop.end; y += loop.step) {
        if (interruptCheck(sampler.interrupt)) return;
        P* to = target.writeAt(loop.x0, y);
        Homogeneous position = rowStart(sampler.matrix, loop.x0, y);
        for (std::int32_t x = loop.x0; x < loop.x1; ++x, stepRight(position, sampler.matrix)) {
            pixel(*to++, x, y, position);
        }
    }
}

template <class Kernel, class P, class Store>
void moveRows(VxDualMoveSampler<P>& sampler, VxTexture<P>& source, VxTexture<P>& target,
              Store store) {
    if (axisAligned(sampler) && moveAlignedRows<Kernel>(sampler, source, target, store)) return;
    const bool perspective = sampler.perspective;
    walkRows(sampler, target, [&](P& to, std::int32_t, std::int32_t, const Homogeneous& position) {
        const float sx = perspective ? position.sx / position.sw : position.sx;
        const float sy = perspective ? position.sy / position.sw : position.sy;
        store(to, Kernel::read(source, Kernel::column(source, sx), Kernel::row(source, sy)));
    });
}

// The sample for Map pixel (x, y), whose centre the matrix takes to `position`, over the area that
// the matrix takes the pixel to.
template <class P>
RgbaFloat footprintSample(const VxDualMoveSampler<P>& sampler, const VxTexture<P>& source,
                          std::int32_t x, std::int32_t y, const Homogeneous& position) {
    const Matrix3& m = sampler.matrix;
    RgbaFloat sample;
    if (sampler.perspective) {
        const Homogeneous low = transform(m, static_cast<float>(x), static_cast<float>(y));
        const Homogeneous high =
            transform(m, static_cast<float>(x) + 1.0f, static_cast<float>(y) + 1.0f);
        source.sampleBetween(sample, low.sx / low.sw, low.sy / low.sw, high.sx / high.sw,
                             high.sy / high.sw);
    } else {
        source.sampleBox(sample, position.sx, position.sy, (m[0] + m[3]) * 0.5f,
                         (m[1] + m[4]) * 0.5f);
    }
    return sample;
}

template <class P, class Store>
void moveFootprints(VxDualMoveSampler<P>& sampler, VxTexture<P>& source, VxTexture<P>& target,
                    Store store) {
    walkRows(sampler, target,
             [&](P& to, std::int32_t x, std::int32_t y, const Homogeneous& position) {
                 store(to, footprintSample(sampler, source, x, y, position));
             });
}

}  // namespace

template <class P>
void VxDualMoveSampler<P>::work(Texture* source, Texture* target) {
    switch (filter) {
        case MoveFilter::Nearest:
            return accumulate ? addNearest(*source, *target) : moveNearest(*source, *target);
        case MoveFilter::Bilinear:
            return accumulate ? addBilinear(*source, *target) : moveBilinear(*source, *target);
        case MoveFilter::Footprint:
            return accumulate ? addFootprint(*source, *target) : moveFootprint(*source, *target);
        case MoveFilter::Sinc:
            if (!accumulate) moveSinc(*source, *target);
            return;
    }
}

template <class P>
void VxDualMoveSampler<P>::moveNearest(Texture& source, Texture& target) {
    moveRows<NearestKernel<P>>(*this, source, target, StoreWhole{});
}

template <class P>
void VxDualMoveSampler<P>::moveFootprint(Texture& source, Texture& target) {
    moveFootprints(*this, source, target, StoreTruncated{});
}

template <class P>
void VxDualMoveSampler<P>::moveBilinear(Texture& source, Texture& target) {
    moveRows<BilinearKernel<P>>(*this, source, target, StoreTruncated{});
}

template <class P>
void VxDualMoveSampler<P>::moveSinc(Texture& source, Texture& target) {
    moveRows<SincKernel<P>>(*this, source, target, StoreClamped{});
}

template <class P>
void VxDualMoveSampler<P>::addNearest(Texture& source, Texture& target) {
    moveRows<NearestKernel<P>>(*this, source, target, AddWeighted{weight});
}

template <class P>
void VxDualMoveSampler<P>::addFootprint(Texture& source, Texture& target) {
    moveFootprints(*this, source, target, AddWeighted{weight});
}

template <class P>
void VxDualMoveSampler<P>::addBilinear(Texture& source, Texture& target) {
    if (perspective) {
        moveRows<BilinearKernel<P>>(*this, source, target, AddUnweighted{});
    } else {
        moveRows<BilinearKernel<P>>(*this, source, target, AddWeighted{weight});
    }
}

template class VxDualMoveSampler<Rgba8>;
template class VxDualMoveSampler<RgbaS214>;

}  // namespace ruvex
