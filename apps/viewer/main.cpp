#include "apps/viewer/Viewer.h"

#include <iostream>
#include <string_view>

int main(int argc, char** argv)
{
    bool const help =
        argc == 2 && (std::string_view(argv[1]) == "--help" || std::string_view(argv[1]) == "-h");
    if (argc > 2 || help) {
        (help ? std::cout : std::cerr) << "usage: fenvis-viewer [SCENE.json|DATA.csv]\n";
        return help ? 0 : 2;
    }
    return runViewer(argc, argv, argc == 2 ? QString::fromLocal8Bit(argv[1]) : QString());
}
