#include <QLibrary>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;

    QLibrary library(QStringLiteral("hmisystemset"));
    using Load = int (*)(const char *path, char *error, int errorSize);
    const auto load = reinterpret_cast<Load>(library.resolve("HmiSimulatorLoadScenario"));
    // null: the service that is installed is a real one, not the simulator
    if (!load) {
        std::fprintf(stderr, "no simulator here\n");
        return 1;
    }

    char error[256] = "";
    const int outcome = load(argv[1], error, sizeof error);
    if (outcome != 0)
        std::fprintf(stderr, "%s\n", error);
    return outcome == 0 ? 0 : 1;
}
