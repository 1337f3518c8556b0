# Sourced by ./demo and ./test: installs what is missing of packages.txt.
#
# require GROUP...: the packages of these groups. Asks apt only for what is not there.
require()
{
    local group package missing=()
    while read -r group package; do
        [[ " $* " == *" $group "* ]] || continue
        dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
            missing+=("$package")
    done < <(grep -E '^[a-z]' packages.txt)
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "installing ${missing[*]}"
    local root=()
    [ "$(id -u)" = 0 ] || root=(sudo)
    mkdir -p build
    if ! { "${root[@]}" timeout 600 apt-get update &&
           "${root[@]}" env DEBIAN_FRONTEND=noninteractive timeout 1200 \
               apt-get install -y --no-install-recommends "${missing[@]}"; } >build/packages.log 2>&1
    then
        tail -n 5 build/packages.log >&2
        echo "cannot install ${missing[*]}; see build/packages.log" >&2
        exit 1
    fi
}

# step TEXT SECONDS COMMAND...: runs a quiet step with a time limit; its output is shown when it fails.
step()
{
    local text=$1 limit=$2 began=$SECONDS log
    shift 2
    log=build/$(printf '%s' "$text" | tr -c 'a-z0-9\n' -).log
    mkdir -p build
    printf '%s ... ' "$text"
    if timeout "$limit" "$@" >"$log" 2>&1 </dev/null; then
        echo "$((SECONDS - began)) s"
    else
        local status=$?
        echo "failed ($([ $status = 124 ] && echo "after $limit s" || echo "exit $status"))"
        tail -n 60 "$log" >&2
        echo "the whole output: $log" >&2
        return 1
    fi
}
