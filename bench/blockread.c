/* The floor that every analysis of a large file is measured against: the
 * files read in 1 MiB blocks by a plain loop that sums the values of the
 * observations, the header skipped by its Ctrl-Z. Built by ratios.sh.
 * usage: blockread FILE [FILE...]   (8-byte records) */
#include <stdio.h>
#include <string.h>

static char block[1 << 20];

int main(int argc, char** argv) {
    double sum = 0.0;
    for (int a = 1; a < argc; ++a) {
        FILE* f = fopen(argv[a], "rb");
        if (!f) return 1;
        setvbuf(f, NULL, _IONBF, 0);
        size_t rest = 0, got;
        int inHeader = 1;
        while ((got = fread(block + rest, 1, sizeof block - rest, f)) > 0) {
            size_t n = rest + got, i = 0;
            if (inHeader) {
                while (i < n && block[i] != 26) ++i;
                ++i;
                inHeader = 0;
            }
            for (; i + 16 <= n; i += 16) {
                double rec[2];
                memcpy(rec, block + i, sizeof rec);
                if (rec[0] >= 0.0) sum += rec[1];
            }
            rest = n - i;
            memmove(block, block + i, rest);
        }
        fclose(f);
    }
    printf("%.17g\n", sum);
    return 0;
}
