# Functions shared by the other scripts, which source this file in the root of the tree.

# heading TEXT: prints a heading with the time since the script started.
heading() {
  printf '\n==== %s (%dm%02ds)\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

# missing_packages WANTED...: prints the listed packages that are needed but not installed.
missing_packages() {
  local package wants
  sed 's/#.*//; /^ *$/d' scripts/packages.txt | while read -r package wants; do
    case " $* " in *" $wants "*) ;; *) continue ;; esac
    if [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
      echo "$package"
    fi
  done
}

# as_root COMMAND...: runs a command as root; fails if that is not possible.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif ! command -v sudo >/dev/null; then
    return 1
  elif [ -t 0 ]; then
    sudo "$@"
  else
    sudo -n "$@"
  fi
}

# install_packages WANTED...: installs missing packages, or lists them and exits.
install_packages() {
  local missing
  missing=$(missing_packages "$@" | paste -sd ' ')
  [ -n "$missing" ] || return 0

  heading "Installing $missing"
  if command -v apt-get >/dev/null; then
    # If some package source does not respond, go on: the installation below will tell.
    as_root apt-get update || true
    if as_root env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y --no-install-recommends $missing; then
      return 0
    fi
  fi
  echo "These packages are missing and could not be installed: $missing" >&2
  echo "Please install them (these are Debian package names), then run this script again." >&2
  exit 1
}
