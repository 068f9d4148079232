// A library that loads and exports nothing that a provider must.
extern "C" int SomethingElse();

int SomethingElse() { return 1; }
