#!/usr/bin/env bash
# Sources the bash completion of zeltcfg and checks what it offers for a few
# command lines.
#   completion-test.sh <completion script>
set -uo pipefail
script=$1
if [ -f /usr/share/bash-completion/bash_completion ]; then
    # shellcheck disable=SC1091
    . /usr/share/bash-completion/bash_completion
fi
# shellcheck disable=SC1090
. "$script"

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch" && touch full.json minimal.json notes.txt || exit 1

failures=0
# expect "<command line, the last word is completed>" "<offered words>"
expect() {
    local line=$1 wanted=$2
    read -r -a COMP_WORDS <<<"$line"
    [[ $line == *' ' ]] && COMP_WORDS+=('')
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMP_LINE=$line
    COMP_POINT=${#line}
    COMPREPLY=()
    _zeltcfg zeltcfg "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}" 2>/dev/null
    local offered
    offered=$(printf '%s\n' "${COMPREPLY[@]}" | sort | tr '\n' ' ')
    wanted=$(printf '%s\n' $wanted | sort | tr '\n' ' ')
    if [[ $offered != "$wanted" ]]; then
        echo "FAIL: '$line'"
        echo "  wanted:  $wanted"
        echo "  offered: $offered"
        failures=$((failures + 1))
    else
        echo "ok: '$line'"
    fi
}

expect 'zeltcfg ' 'check show get set unset add remove fmt diff patch merge new schema'
expect 'zeltcfg s' 'show set schema'
expect 'zeltcfg --v' '--version'
expect 'zeltcfg check --s' '--strict'
expect 'zeltcfg show --' '--json --help'
expect 'zeltcfg fmt --c' '--check'
expect 'zeltcfg fmt --' '--check --wait --help'
expect 'zeltcfg remove --w' '--wait'
expect 'zeltcfg set --wait ' ''
expect 'zeltcfg set --wait 10 minimal.json /ClientSetting/HTTPS/S' '/ClientSetting/HTTPS/SSLFilter'
expect 'zeltcfg check f' 'full.json'
expect 'zeltcfg get full.json /' \
    '/ClientSetting/ /AdvancedRule/ /ContentUploadChannel/ /ProfileName /SchemaVersion
     /AdminPassword /EnableTrayiconMenu'
expect 'zeltcfg get full.json /ClientSetting/' \
    '/ClientSetting/Communication/ /ClientSetting/HTTPS/ /ClientSetting/ContentUpload
     /ClientSetting/FailOpen /ClientSetting/LogUpload /ClientSetting/URLLocalCache
     /ClientSetting/SafeMode /ClientSetting/StatsPeriod'
expect 'zeltcfg set minimal.json /ClientSetting/HTTPS/S' '/ClientSetting/HTTPS/SSLFilter'
expect 'zeltcfg unset full.json ClientSetting.HTTPS.' \
    'ClientSetting.HTTPS.InspectHostnameOnly ClientSetting.HTTPS.SSLFilter
     ClientSetting.HTTPS.UpstreamVerification ClientSetting.HTTPS.WhiteList
     ClientSetting.HTTPS.WhiteListWithPorts'
expect 'zeltcfg add full.json /AdvancedRule/WhiteList/' \
    '/AdvancedRule/WhiteList/IPList /AdvancedRule/WhiteList/VPNDescList
     /AdvancedRule/WhiteList/DomainLists /AdvancedRule/WhiteList/ProcessNames'
expect 'zeltcfg remove full.json Adv' 'AdvancedRule.'
expect 'zeltcfg set full.json /ProfileName ' ''
expect 'zeltcfg schema ' ''
expect 'zeltcfg d' 'diff'
expect 'zeltcfg diff --' '--json --help'
expect 'zeltcfg diff f' 'full.json'
expect 'zeltcfg diff --json full.json m' 'minimal.json'
expect 'zeltcfg diff full.json minimal.json ' ''
expect 'zeltcfg patch --' '--merge --dry-run --wait --help'
expect 'zeltcfg patch --dry-run full.json m' 'minimal.json'
expect 'zeltcfg patch --wait ' ''
expect 'zeltcfg merge --o' '--output'
expect 'zeltcfg merge -o f' 'full.json'
expect 'zeltcfg merge full.json minimal.json n' 'notes.txt'

if [ "$failures" -ne 0 ]; then
    echo "$failures completion checks failed"
    exit 1
fi
