#include "camjob/console/Paths.h"

#include <string>

#include <gtest/gtest.h>

namespace {

TEST(NamesFromFolder, AreThoseOfEachFileByItself) {
    for (const char* other : {"job.toml", "jobs/job.toml", "/tmp/jobs/../job.toml"}) {
        camjob::NamesFromFolder names(other);
        for (const char* file : {"nc/a.nc1",
                                 "nc/b.nc1",
                                 "nc//c.nc1",
                                 "jobs/nc/./a.nc1",
                                 "jobs/a.nc1",
                                 "jobs/..",
                                 "jobs/.hidden",
                                 "nc/b.nc1",
                                 "a.nc1",
                                 "/tmp/a.nc1",
                                 "/a.nc1",
                                 "nc/back\\slash.nc1",
                                 "nc/"})
            EXPECT_EQ(names.Of(file), camjob::NameFromFolderOf(other, file))
                << other << " " << file;
    }
}

}  // namespace
