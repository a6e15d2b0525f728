// Inputs the benchmarks share: generated pool descriptions and pools, the real pools, and
// terminals of lower depth.
#ifndef BENCH_BENCH_SUPPORT_H
#define BENCH_BENCH_SUPPORT_H

#include <benchmark/benchmark.h>

#include <QByteArray>
#include <QString>
#include <memory>

#include "tools/description/Description.h"
#include "tools/pool/Object_pool.h"
#include "tools/pool/Pool_file.h"

namespace bench {

// A description of `objects` objects of mixed types (variables, attributes, strings, numbers,
// shapes, containers, masks, inputs, macros and small pictures), about 100 bytes each as
// pool bytes. Every block of objects refers only to objects of its own block.
QByteArray mixed_description(int objects);

// The pool bytes of mixed_description(objects), built once per count.
const QByteArray& mixed_pool_bytes(int objects);

// Builds a description into `pool`; aborts the run when it does not build.
void build_description(const QByteArray& xml, VT::Object_pool& pool);

// Limits of a 16-colour terminal that shows only some fonts.
VT::Serialisation_limits sixteen_colours_reduced_fonts();

// Reports `bytes` and `objects` per iteration as rates, and the time per object.
void report(benchmark::State& state, int64_t bytes, int64_t objects);

}

#endif
