// A module that is nothing but its resources.
extern "C" __attribute__((visibility("default"))) int PicturesOnly() { return 1; }
