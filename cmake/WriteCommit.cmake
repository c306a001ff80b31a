# cmake -DSOURCE=... -DFILE=... -P WriteCommit.cmake writes a header with the commit that is built, "" when
# nobody knows. The file stays untouched while the commit does.
execute_process(
    COMMAND git -C ${SOURCE} describe --always --dirty=+ --abbrev=10 --exclude=*
    OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE result)
# A repository around the sources of a release is not theirs.
if(NOT result EQUAL 0 OR NOT EXISTS ${SOURCE}/.git)
    set(commit "")
endif()
file(CONFIGURE OUTPUT ${FILE} CONTENT "#define CAMJOB_COMMIT \"${commit}\"\n" @ONLY)
