# shellcheck shell=bash
# What the scripts share that build or test in a clean root of a Debian release (scripts/make-root).

# enter_own_namespace SCRIPT ARGUMENT...: starts the calling script again in a namespace of its own, if it
# is not in one yet. There every mount and process ends with the script, however it ends, and the machine
# may get another name.
enter_own_namespace() {
  if [[ -z ${TAMBERLINE_OWN_NAMESPACE:-} ]]; then
    if [[ $EUID -ne 0 ]]; then
      echo "$(basename "$1"): a clean root needs root" >&2
      exit 1
    fi
    exec env TAMBERLINE_OWN_NAMESPACE=yes \
      unshare --mount --pid --uts --fork --kill-child --mount-proc "$@"
  fi
  unset TAMBERLINE_OWN_NAMESPACE
}

mount_in_root() {
  local root=$1
  mount --bind "$root" "$root" # tests that mount file systems need a root that is a mount itself
  mount -t proc proc "$root/proc"
  mount -t sysfs sysfs "$root/sys"
  mount --rbind /dev "$root/dev"
  mount --make-rslave "$root/dev"
}

remove_root() {
  local root=$1
  umount --recursive --lazy "$root" 2>/dev/null || true # after an interruption, processes may still be in it
  rm -rf --one-file-system "$root"
}
