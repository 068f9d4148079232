#include "bench/job_table.h"

namespace fdo::bench {
namespace {

// Each row: name, data, unit, goal, what prepares it.
constexpr Job kJobs[] = {
    {"ogr-scan", "gpkg points", kRowsPerSecond, 0.9, OgrScanJob},
    {"ogr-scan", "gpkg polygons", kRowsPerSecond, 0.9, OgrScanJob},
    {"ogr-scan", "fgb points", kRowsPerSecond, 0.9, OgrScanJob},
    {"ogr-scan", "fgb polygons", kRowsPerSecond, 0.9, OgrScanJob},
    {"ogr-scan", "shp points", kRowsPerSecond, 0.9, OgrScanJob},
    {"ogr-scan", "shp polygons", kRowsPerSecond, 0.9, OgrScanJob},
    {"ogr-one-field", "gpkg points", kRowsPerSecond, 0.8, OgrOneFieldJob},
    {"ogr-one-field", "gpkg polygons", kRowsPerSecond, 0.8, OgrOneFieldJob},
    {"ogr-one-field", "fgb points", kRowsPerSecond, 0.8, OgrOneFieldJob},
    {"ogr-one-field", "fgb polygons", kRowsPerSecond, 0.8, OgrOneFieldJob},
    {"ogr-one-field", "shp points", kRowsPerSecond, 0.8, OgrOneFieldJob},
    {"ogr-one-field", "shp polygons", kRowsPerSecond, 0.8, OgrOneFieldJob},
    {"fdo-scan", "points", kRowsPerSecond, 0.8, FdoScanJob},
    {"fdo-scan", "polygons", kRowsPerSecond, 0.8, FdoScanJob},
    {"fdo-scan-vs-ogr", "points", kRowsPerSecond, 2, FdoScanVsOgrJob},
    {"fdo-scan-vs-ogr", "polygons", kRowsPerSecond, 2, FdoScanVsOgrJob},
    {"fdo-lazy", "points", kRowsPerSecond, 1.1, FdoLazyJob},
    {"fdo-lazy", "polygons", kRowsPerSecond, 1.1, FdoLazyJob},
    {"fdo-filter", "points", kRowsPerSecond, 0.85, FdoFilterJob},
    {"fdo-by-id", "points", kRowsPerSecond, 0.8, FdoByIdJob},
    {"fdo-insert", "points", kRowsPerSecond, 0.65, FdoInsertJob},
    {"fdo-insert", "polygons", kRowsPerSecond, 0.65, FdoInsertJob},
    {"fdo-insert-vs-ogr", "points", kRowsPerSecond, 1.5, FdoInsertVsOgrJob},
    {"fdo-insert-vs-ogr", "polygons", kRowsPerSecond, 1.5, FdoInsertVsOgrJob},
    {"stats-minmax", "points", kRowsPerSecond, 0.8, StatsMinMaxJob},
    {"stats-mean", "points", kRowsPerSecond, 0.8, StatsMeanJob},
    {"stats-median", "points", kRowsPerSecond, 0, StatsMedianJob},
    {"stats-distinct", "points", kRowsPerSecond, 0, StatsDistinctJob},
    {"stats-extent", "points", kRowsPerSecond, 0.8, StatsExtentJob},
    {"stats-extent", "polygons", kRowsPerSecond, 0.8, StatsExtentJob},
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
    {"geometry-from-fgf", "points in cache", kGeometriesPerSecond, 5, GeometryFromFgfJob},
    {"geometry-from-fgf", "polygons in cache", kGeometriesPerSecond, 5, GeometryFromFgfJob},
    {"spatial-evaluate", "points in one polygon", kGeometriesPerSecond, 0.8, SpatialEvaluateJob},
    {"parse-filter", "three comparisons", kFiltersPerSecond, 0, ParseFilterJob},
    {"scroller", "points", kRowsPerSecond, 0.8, ScrollerJob},
    {"pool", "one thread", kConnectionsPerSecond, 1, PoolJob},
    {"pool", "two threads", kConnectionsPerSecond, 1, PoolJob},
    {"eval-vs-variant", "rows in cache", kRowsPerSecond, 0.7, EvalVariantJob},
    {"eval-vs-variant", "rows out of cache", kRowsPerSecond, 0.7, EvalVariantJob},
    {"eval-vs-sqlite", "rows in cache", kRowsPerSecond, 4, EvalSqliteJob},
    {"eval-vs-sqlite", "rows out of cache", kRowsPerSecond, 4, EvalSqliteJob},
    {"eval-vs-ogr", "rows in cache", kRowsPerSecond, 20, EvalOgrJob},
    {"eval-vs-ogr", "rows out of cache", kRowsPerSecond, 20, EvalOgrJob},
    {"eval-spatial", "points in one polygon", kRowsPerSecond, 0.6, EvalSpatialJob},
    {"rss-growth", "gpkg polygons", kMebibytes, 2, RssGrowthJob},
    {"rss-growth", "fgb polygons", kMebibytes, 2, RssGrowthJob},
    {"rss-growth", "shp polygons", kMebibytes, 2, RssGrowthJob},
    {"start", "one call", kStartsPerSecond, 5, StartJob},
};

}  // namespace

std::span<Job const> Jobs() { return kJobs; }

}  // namespace fdo::bench
