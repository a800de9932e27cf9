# The Debian package, made by CPack; scripts/package calls it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ledra)
set(CPACK_PACKAGE_CONTACT "${LEDRA_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "invoices, quotes, reminders and e-invoices for small firms")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Ledra makes invoices, quotes and cancellations for freelancers and small
firms. Every document is a readable JSON file in a folder of your choice;
Ledra turns it into a business letter with selectable text, in German or
English, on A4 or US Letter.
.
It writes, checks, shows and takes in e-invoices (ZUGFeRD/Factur-X and
XRechnung), reminds of unpaid invoices, writes lists for spreadsheets, keeps
backups and runs plugins. All of it works in a window and from the command
line; no account and no network is needed.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Libraries and the web engine's own programs are found by dpkg-shlibdeps. What is needed besides:
# a font for characters that the shipped ones lack, and what the icons and types are put into.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-noto-core, hicolor-icon-theme, shared-mime-info")
# Chinese, Japanese and Korean; Qt's own German; Wayland; "gapplication" for launchers that do not speak D-Bus themselves.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-cjk, qt6-translations-l10n, qt6-wayland, libglib2.0-bin, xdg-desktop-portal")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "packagekit")
include(CPack)
