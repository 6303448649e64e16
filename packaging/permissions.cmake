# SPDX-License-Identifier: MIT
# Run by CPack before it packs what is installed: folders that came about on the way have the
# permissions that the umask left them.

file(CHMOD_RECURSE ${CPACK_TEMPORARY_INSTALL_DIRECTORY}
     DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
                           WORLD_EXECUTE)
