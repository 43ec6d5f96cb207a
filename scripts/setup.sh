# Read by the other scripts, in the root of the tree: what they share.

# heading TEXT: a line that stands out, with the time since the script began.
heading() {
  printf '\n==== %s (%dm%02ds)\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

# missing_packages WANTED...: those packages of the list that are wanted and not installed.
missing_packages() {
  local package wants
  sed 's/#.*//; /^ *$/d' scripts/packages.txt | while read -r package wants; do
    case " $* " in *" $wants "*) ;; *) continue ;; esac
    if [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
      echo "$package"
    fi
  done
}

# as_root COMMAND...: runs it with the right to install, if there is a way to that right.
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

# install_packages WANTED...: installs what is missing, or says what is and stops.
install_packages() {
  local missing
  missing=$(missing_packages "$@" | paste -sd ' ')
  [ -n "$missing" ] || return 0

  heading "Installing $missing"
  if command -v apt-get >/dev/null; then
    # A source of other packages that does not answer need not stop us: the installation decides.
    as_root apt-get update || true
    if as_root env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y --no-install-recommends $missing; then
      return 0
    fi
  fi
  echo "These packages are missing and could not be installed: $missing" >&2
  echo "Please install them, by Debian's names or your system's, and run this again." >&2
  exit 1
}
