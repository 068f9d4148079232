// Is linked with GDAL, calls it once and ends.
extern "C" char const* GDALVersionInfo(char const* request);

int main() { return GDALVersionInfo("VERSION_NUM")[0] != '\0' ? 0 : 1; }
