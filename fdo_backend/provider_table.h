// The FDO providers that are known by name: what their libraries are called, and which kinds of file are
// theirs.
#ifndef FDO_BACKEND_PROVIDER_TABLE_H_
#define FDO_BACKEND_PROVIDER_TABLE_H_

namespace fdo::internal {

struct ProviderLibrary {
  wchar_t const* provider;
  char const* library;  // a base name: the platform's prefix and suffix complete it
};

// In the order in which they are tried.
inline constexpr ProviderLibrary kProviderLibraries[] = {
    {L"OSGeo.SDF", "SDFProvider"},
    {L"OSGeo.SHP", "SHPProvider"},
    {L"OSGeo.SQLite", "SQLiteProvider"},
    {L"Vendrix.Oracle", "FdoRdbms"},
    {L"Vendrix.SqlServer", "SqlServerProvider"},
    {L"OSGeo.SQLServerSpatial", "SQLServerSpatialProvider"},
    {L"OSGeo.MySQL", "MySQLProvider"},
    {L"OSGeo.ODBC", "ODBCProvider"},
    {L"OSGeo.WFS", "WFSProvider"},
    {L"OSGeo.WMS", "WMSProvider"},
    {L"OSGeo.ArcSDE", "ArcSDEProvider"},
    {L"Vendrix.DesignService", "QrDsDesignService"},
    {L"OSGeo.PostgreSQL", "PostgreSQLProvider"},
    {L"OSGeo.PostGIS", "PostGISProvider"},
};

struct FileExtension {
  wchar_t const* extension;
  wchar_t const* provider;
};

// Deliberate: .sdx belongs to SQLite, too (ProviderFromFileExtension.EveryRow).
inline constexpr FileExtension kFileExtensions[] = {
    {L".sdf", L"OSGeo.SDF"},    {L".shp", L"OSGeo.SHP"},
    {L".sdx", L"OSGeo.SQLite"}, {L".sqlite", L"OSGeo.SQLite"},
    {L".db", L"OSGeo.SQLite"},  {L".orqdb", L"OSGeo.SQLite"},
    {L".tvz", L"OSGeo.SQLite"}, {L".dwg", L"Vendrix.DesignService"},
};

}  // namespace fdo::internal

#endif  // FDO_BACKEND_PROVIDER_TABLE_H_
