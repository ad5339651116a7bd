# Progress on one line a step, and the details only when it fails. To be sourced.

# step TEXT COMMAND... runs the command. Its output is shown only when it fails, which ends the
# script with status 1.
step() {
  local text=$1 log start=$SECONDS
  shift
  log=$(mktemp)
  printf '%s ... ' "$text"
  if "$@" >"$log" 2>&1 </dev/null; then
    echo "$((SECONDS - start)) s"
    rm -f "$log"
  else
    echo "FAILED"
    cat "$log" >&2
    rm -f "$log"
    echo "FAILED: $text ($*)" >&2
    exit 1
  fi
}

# build PRESET [TARGET...] configures and builds a preset of CMakePresets.json.
build() {
  local preset=$1
  shift
  step "Configuring $preset" cmake --preset "$preset"
  step "Building $preset" cmake --build --preset "$preset" ${1:+--target "$@"} -- --quiet
}
