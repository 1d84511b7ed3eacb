# Run by CPack on the staged files before it packs them. The install step refreshes the
# desktop's handler cache (mimeinfo.cache) for installs by hand; a package must not own that
# file, which desktop-file-utils' trigger rewrites for every package.
file(GLOB_RECURSE caches "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/mimeinfo.cache")
if(caches)
    file(REMOVE ${caches})
endif()
