// reader NC-FILE: shows the holes of a part that the installed NC host reads.

#include <camdata/platform/host/ZetNCCreator.h>
#include <cstdio>
#include <dstv/NcHost.h>
#include <dstv/NcReader.h>

int main(int argc, char** argv) {
    if (argc != 2)
        return std::fprintf(stderr, "usage: reader NC-FILE\n"), 2;
    dstv::NcResult result = dstv::ReadNcFile(argv[1]);
    if (const auto* error = std::get_if<dstv::NcError>(&result))
        return std::fprintf(stderr, "%s\n", error->describe().toUtf8().c_str()), 2;
    dstv::NcFileEntity entity(std::get<dstv::NcPart>(std::move(result)));
    ZetNCCreator creator;
    creator.setNCEntity(&entity);
    creator.create();
    for (const ZetNCView& view : creator.getNCStructure().getViews())
        for (const ZetNCHoleData& hole : view.getHoles())
            std::printf("%s view %d x %.1f y %.1f diameter %.1f\n",
                        creator.getHeader().mark.toUtf8().c_str(),
                        view.getViewPos(),
                        hole.x,
                        hole.y,
                        hole.size);
    return 0;
}
