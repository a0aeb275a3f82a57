// Loads the libraries of its command line by their bare names, as a program does that does not care
// where they come from.
#include <windows.h>

int main(int count, char** arguments) {
    for (int i = 1; i < count; ++i) LoadLibraryA(arguments[i]);
    return 0;
}
