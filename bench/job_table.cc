#include "bench/job_table.h"

namespace fdo::bench {
namespace {

// Each row: name, data, unit, goal, what prepares it.
constexpr Job kJobs[] = {
    {"fgf-box", "points in cache", kBytesPerSecond, 0.85, FgfBoxJob},
    {"fgf-box", "points out of cache", kBytesPerSecond, 0.85, FgfBoxJob},
    {"fgf-box", "polygons in cache", kBytesPerSecond, 0.85, FgfBoxJob},
    {"fgf-box", "polygons out of cache", kBytesPerSecond, 0.85, FgfBoxJob},
    {"fgf-to-wkb", "points in cache", kBytesPerSecond, 0.85, FgfToWkbJob},
    {"fgf-to-wkb", "points out of cache", kBytesPerSecond, 0.85, FgfToWkbJob},
    {"fgf-to-wkb", "polygons in cache", kBytesPerSecond, 0.85, FgfToWkbJob},
    {"fgf-to-wkb", "polygons out of cache", kBytesPerSecond, 0.85, FgfToWkbJob},
    {"wkb-to-fgf", "points in cache", kBytesPerSecond, 0.85, WkbToFgfJob},
    {"wkb-to-fgf", "points out of cache", kBytesPerSecond, 0.85, WkbToFgfJob},
    {"wkb-to-fgf", "polygons in cache", kBytesPerSecond, 0.85, WkbToFgfJob},
    {"wkb-to-fgf", "polygons out of cache", kBytesPerSecond, 0.85, WkbToFgfJob},
    {"start", "one call", kStartsPerSecond, 5, StartJob},
};

}  // namespace

std::span<Job const> Jobs() { return kJobs; }

}  // namespace fdo::bench
