# The zeltcfg test cases; zeltcfg_case is defined in CMakeLists.txt. Each
# case works in a folder of its own, so they run in any order and side by
# side.
set(invalid_samples
  invalid-bad-header-item.json invalid-bad-iplist-item.json invalid-missing-adminpassword.json
  invalid-missing-dispserverhostname.json invalid-missing-maxfilesize.json
  invalid-missing-sslfilter.json invalid-vpndesclist-not-array.json invalid-wrapped-root.json)

# Command line.
zeltcfg_case(usage_without_command STEPS)
zeltcfg_case(usage_help STEPS --help)
zeltcfg_case(usage_version STEPS --version)
zeltcfg_case(usage_command_help STEPS set --help)
zeltcfg_case(usage_unknown_option SAMPLES full.json STEPS show --yaml full.json)
zeltcfg_case(usage_missing_argument SAMPLES full.json STEPS get full.json)

# check
zeltcfg_case(check_valid_samples SAMPLES full.json minimal.json
  STEPS check full.json minimal.json)
zeltcfg_case(check_invalid_samples SAMPLES ${invalid_samples} STEPS check ${invalid_samples})
zeltcfg_case(check_verbose SAMPLES invalid-bad-iplist-item.json
  STEPS check -v invalid-bad-iplist-item.json)
zeltcfg_case(check_lint_warnings SAMPLES lint.json UNCHANGED lint.json STEPS check lint.json)
zeltcfg_case(check_lint_strict SAMPLES lint.json STEPS check --strict lint.json)
zeltcfg_case(check_parse_error SAMPLES broken.json truncated.json
  STEPS check broken.json truncated.json)
zeltcfg_case(check_standard_input STDIN full.json STEPS check -)
zeltcfg_case(check_missing_file SAMPLES minimal.json STEPS check minimal.json missing.json)
zeltcfg_case(check_folder SAMPLES minimal.json STEPS check .)

# show
zeltcfg_case(show_full SAMPLES full.json STEPS show full.json)
zeltcfg_case(show_minimal SAMPLES minimal.json STEPS show minimal.json)
zeltcfg_case(show_json SAMPLES full.json UNCHANGED full.json STEPS show --json full.json)
zeltcfg_case(show_standard_input STDIN minimal.json STEPS show -)
zeltcfg_case(show_invalid SAMPLES invalid-missing-sslfilter.json
  STEPS show invalid-missing-sslfilter.json)

# get
zeltcfg_case(get_integer SAMPLES full.json
  STEPS get full.json /ClientSetting/Communication/LogUploadInterval
  THEN get full.json ClientSetting.Communication.LogUploadInterval)
zeltcfg_case(get_text SAMPLES full.json STEPS get full.json /ProfileName
  THEN get full.json /AdminPassword)
zeltcfg_case(get_list SAMPLES full.json STEPS get full.json /AdvancedRule/WhiteList/VPNDescList
  THEN get full.json AdvancedRule.WhiteList.VPNDescList.2)
zeltcfg_case(get_object SAMPLES full.json STEPS get full.json /ClientSetting/HTTPS
  THEN get full.json /AdvancedRule/EnforceList)
zeltcfg_case(get_absent SAMPLES minimal.json STEPS get minimal.json /ClientSetting/FailOpen
  THEN get minimal.json /AdvancedRule/EnforceList/IPList
  THEN get minimal.json /AdvancedRule/WhiteList)
zeltcfg_case(get_bad_paths SAMPLES full.json
  STEPS get full.json /ClientSetting/Communication/AutoUpgradeURI
  THEN get full.json /Nothing
  THEN get full.json /ClientSetting/HTTPS/SSLFilter/More
  THEN get full.json /AdvancedRule/EnforceList/IPList/3
  THEN get full.json /AdvancedRule/EnforceList/IPList/first
  THEN get full.json ClientSetting..HTTPS
  THEN get full.json /ClientSetting/~2)
zeltcfg_case(get_standard_input STDIN full.json STEPS get - /ContentUploadChannel/FileTypesToScan)

# set
zeltcfg_case(set_round_trip SAMPLES minimal.json RESULT minimal.json
  STEPS set minimal.json /ClientSetting/StatsPeriod 4294967295
  THEN get minimal.json /ClientSetting/StatsPeriod
  THEN set minimal.json ProfileName "Außendienst \"Nord\""
  THEN get minimal.json ProfileName
  THEN check minimal.json)
zeltcfg_case(set_makes_parents_present SAMPLES minimal.json RESULT minimal.json
  STEPS set minimal.json /AdvancedRule/WhiteList/ProcessNames agent.exe
  THEN show minimal.json)
zeltcfg_case(set_list_entry SAMPLES full.json RESULT full.json
  STEPS set full.json /AdvancedRule/EnforceList/IPList/1 10.1.0.0/16
  THEN get full.json /AdvancedRule/EnforceList/IPList)
zeltcfg_case(set_keeps_permissions SAMPLES minimal.json MODE 640
  STEPS set minimal.json /ClientSetting/LogUpload 0)
zeltcfg_case(set_bad_values SAMPLES minimal.json UNCHANGED minimal.json
  STEPS set minimal.json /ClientSetting/LogUpload -1
  THEN set minimal.json /ClientSetting/LogUpload 4294967296
  THEN set minimal.json /ClientSetting/LogUpload 0x10
  THEN set minimal.json /ClientSetting/LogUpload +5
  THEN set minimal.json /ClientSetting/HTTPS 1
  THEN set minimal.json /AdvancedRule/EnforceList/IPList 1.2.3.4
  THEN set minimal.json /ClientSetting/Nothing 1)
zeltcfg_case(set_invalid_file SAMPLES invalid-missing-sslfilter.json
  UNCHANGED invalid-missing-sslfilter.json
  STEPS set invalid-missing-sslfilter.json /ClientSetting/HTTPS/SSLFilter 1)
zeltcfg_case(set_missing_file STEPS set missing.json /ProfileName x)
zeltcfg_case(set_failing_save SAMPLES full.json UNCHANGED full.json FILE_SIZE_LIMIT_ZERO
  STEPS set full.json /ProfileName changed)
zeltcfg_case(set_standard_input STDIN minimal.json STEPS set - /SchemaVersion 2.0)
zeltcfg_case(set_drops_unknown_members SAMPLES lint.json RESULT lint.json
  STEPS set lint.json /ClientSetting/HTTPS/SSLFilter 1)

# unset
zeltcfg_case(unset_round_trip SAMPLES full.json RESULT full.json
  STEPS unset full.json /ClientSetting/FailOpen
  THEN get full.json /ClientSetting/FailOpen
  THEN unset full.json AdvancedRule.WhiteList
  THEN unset full.json /ContentUploadChannel/ClientRequestHeaders
  THEN unset full.json /ClientSetting/Communication
  THEN check full.json)
zeltcfg_case(unset_required SAMPLES full.json UNCHANGED full.json
  STEPS unset full.json /ClientSetting/HTTPS/SSLFilter
  THEN unset full.json /ClientSetting
  THEN unset full.json /AdvancedRule/EnforceList/IPList/0)
zeltcfg_case(unset_absent SAMPLES minimal.json UNCHANGED minimal.json
  STEPS unset minimal.json /AdvancedRule/EnforceList/ProcessNames)

# add and remove
zeltcfg_case(add_round_trip SAMPLES minimal.json RESULT minimal.json
  STEPS add minimal.json /ContentUploadChannel/ClientRequestHeaders "X-Tenant: acme"
  THEN add minimal.json ContentUploadChannel.ClientRequestHeaders "X-Zone: 東京"
  THEN get minimal.json /ContentUploadChannel/ClientRequestHeaders
  THEN remove minimal.json /ContentUploadChannel/ClientRequestHeaders 0
  THEN get minimal.json /ContentUploadChannel/ClientRequestHeaders)
zeltcfg_case(add_not_a_list SAMPLES full.json UNCHANGED full.json
  STEPS add full.json /ProfileName x
  THEN add full.json /AdvancedRule/EnforceList/IPList/0 x)
zeltcfg_case(remove_bad_index SAMPLES full.json UNCHANGED full.json
  STEPS remove full.json /AdvancedRule/EnforceList/IPList 3
  THEN remove full.json /AdvancedRule/EnforceList/IPList last
  THEN remove full.json /AdvancedRule/EnforceList 0)
zeltcfg_case(remove_from_absent_list SAMPLES minimal.json UNCHANGED minimal.json
  STEPS remove minimal.json /AdvancedRule/WhiteList/VPNDescList 0)

# fmt
zeltcfg_case(fmt_rewrites SAMPLES full.json RESULT full.json
  STEPS fmt full.json THEN fmt --check full.json)
zeltcfg_case(fmt_check SAMPLES full.json minimal.json UNCHANGED full.json
  STEPS fmt --check full.json minimal.json)
zeltcfg_case(fmt_invalid SAMPLES broken.json minimal.json UNCHANGED broken.json
  STEPS fmt broken.json minimal.json)
zeltcfg_case(fmt_standard_input STDIN minimal.json STEPS fmt -)

# diff
zeltcfg_case(diff_equal SAMPLES full.json full.json NAMED first.json second.json
  STEPS diff first.json second.json
  THEN diff --json first.json second.json)
zeltcfg_case(diff_members SAMPLES full.json minimal.json UNCHANGED full.json
  STEPS diff full.json minimal.json
  THEN diff minimal.json full.json)
zeltcfg_case(diff_json SAMPLES full.json minimal.json
  STEPS diff --json full.json minimal.json
  THEN diff --json minimal.json full.json)
zeltcfg_case(diff_list_entries SAMPLES full.json diff-lists.json
  STEPS diff full.json diff-lists.json
  THEN diff --json full.json diff-lists.json
  THEN diff diff-lists.json full.json)
zeltcfg_case(diff_unicode_and_escaped_strings SAMPLES minimal.json diff-escaped.json
  STEPS diff minimal.json diff-escaped.json
  THEN diff --json diff-escaped.json minimal.json)
zeltcfg_case(diff_standard_input STDIN minimal.json SAMPLES full.json minimal.json
  STEPS diff - full.json
  THEN diff minimal.json -)
zeltcfg_case(diff_invalid_file SAMPLES full.json invalid-missing-sslfilter.json broken.json
  STEPS diff full.json invalid-missing-sslfilter.json
  THEN diff broken.json full.json
  THEN diff broken.json invalid-missing-sslfilter.json)
zeltcfg_case(diff_missing_file SAMPLES full.json
  STEPS diff full.json missing.json
  THEN diff missing.json full.json)
zeltcfg_case(diff_both_standard_input STDIN minimal.json STEPS diff - -)

# patch
zeltcfg_case(patch_json_patch SAMPLES full.json patch-changes.json RESULT full.json
  STEPS patch full.json patch-changes.json
  THEN get full.json /AdvancedRule/EnforceList/IPList
  THEN check full.json)
zeltcfg_case(patch_merge_patch SAMPLES full.json patch-merge.json RESULT full.json
  STEPS patch --merge full.json patch-merge.json
  THEN show full.json)
zeltcfg_case(patch_dry_run SAMPLES full.json patch-changes.json UNCHANGED full.json
  STEPS patch --dry-run full.json patch-changes.json)
zeltcfg_case(patch_standard_input SAMPLES minimal.json STDIN patch-merge.json
  RESULT minimal.json
  STEPS patch --merge minimal.json -)
zeltcfg_case(patch_file_from_standard_input SAMPLES patch-merge.json STDIN full.json
  STEPS patch --merge - patch-merge.json)
zeltcfg_case(patch_all_or_nothing SAMPLES full.json patch-fails-late.json patch-test-fails.json
  UNCHANGED full.json
  STEPS patch full.json patch-fails-late.json
  THEN patch full.json patch-test-fails.json
  THEN patch --dry-run full.json patch-fails-late.json)
zeltcfg_case(patch_failures SAMPLES full.json patch-unknown-member.json
  patch-required-member.json patch-move-into-child.json patch-out-of-range.json
  patch-not-a-patch.json patch-merge-typo.json UNCHANGED full.json
  STEPS patch full.json patch-unknown-member.json
  THEN patch full.json patch-required-member.json
  THEN patch full.json patch-move-into-child.json
  THEN patch full.json patch-out-of-range.json
  THEN patch full.json patch-not-a-patch.json
  THEN patch --merge full.json patch-merge-typo.json)
zeltcfg_case(patch_unreadable_input SAMPLES full.json patch-not-json.json
  invalid-missing-sslfilter.json patch-changes.json UNCHANGED full.json
  STEPS patch full.json patch-not-json.json
  THEN patch full.json missing.json
  THEN patch invalid-missing-sslfilter.json patch-changes.json
  THEN patch missing.json patch-changes.json
  THEN patch - -)
zeltcfg_case(patch_while_another_process_changes_the_file SAMPLES full.json patch-merge.json
  UNCHANGED full.json LOCKED full.json
  STEPS patch --merge --wait 0 full.json patch-merge.json
  THEN patch --merge --wait 0.2 full.json patch-merge.json
  THEN patch --merge --dry-run --wait 0 full.json patch-merge.json)

# merge
zeltcfg_case(merge_overlays SAMPLES minimal.json overlay-site.json overlay-team.json
  UNCHANGED minimal.json
  STEPS merge minimal.json overlay-site.json
  THEN merge minimal.json overlay-site.json overlay-team.json)
zeltcfg_case(merge_to_a_new_file SAMPLES minimal.json overlay-site.json overlay-team.json
  RESULT site.json
  STEPS merge -o site.json minimal.json overlay-site.json overlay-team.json
  THEN check site.json)
zeltcfg_case(merge_to_an_existing_file SAMPLES minimal.json overlay-site.json overlay-team.json full.json
  RESULT full.json
  STEPS merge minimal.json overlay-site.json -o full.json
  THEN merge --output full.json full.json overlay-team.json
  THEN get full.json /ProfileName)
zeltcfg_case(merge_standard_input SAMPLES minimal.json overlay-team.json STDIN overlay-site.json
  STEPS merge minimal.json - overlay-team.json
  THEN merge - minimal.json -)
zeltcfg_case(merge_failures SAMPLES minimal.json overlay-site.json overlay-typo.json
  overlay-required.json overlay-not-json.json invalid-missing-sslfilter.json
  STEPS merge minimal.json overlay-site.json overlay-typo.json
  THEN merge minimal.json overlay-required.json
  THEN merge minimal.json overlay-site.json overlay-not-json.json
  THEN merge minimal.json missing.json
  THEN merge invalid-missing-sslfilter.json overlay-site.json
  THEN merge missing.json overlay-site.json
  THEN merge -o missing/out.json minimal.json overlay-site.json)
zeltcfg_case(merge_failure_writes_nothing SAMPLES minimal.json overlay-typo.json full.json
  UNCHANGED full.json
  STEPS merge -o full.json minimal.json overlay-typo.json)
zeltcfg_case(merge_while_another_process_changes_the_output SAMPLES minimal.json
  overlay-site.json UNCHANGED minimal.json LOCKED site.json
  STEPS merge --wait 0 -o site.json minimal.json overlay-site.json
  THEN merge --wait 0 minimal.json overlay-site.json)

# Changes that race: a changing command holds the lock file beside its file,
# leaves it there, and gives up when another process holds it past --wait.
zeltcfg_case(edit_while_another_process_changes_the_file SAMPLES full.json UNCHANGED full.json
  LOCKED full.json
  STEPS set --wait 0 full.json /ProfileName changed
  THEN unset --wait 0 full.json /ClientSetting/FailOpen
  THEN add --wait 0 full.json /AdvancedRule/EnforceList/IPList 10.9.0.0/16
  THEN remove --wait 0 full.json /AdvancedRule/EnforceList/IPList 0
  THEN fmt --wait 0 full.json
  THEN set --wait 0.2 full.json /ProfileName changed
  THEN get full.json /ProfileName
  THEN fmt --check full.json)
zeltcfg_case(edit_leaves_an_empty_lock_file SAMPLES minimal.json RESULT minimal.json.lock
  STEPS set minimal.json /ProfileName changed
  THEN get minimal.json /ProfileName)
zeltcfg_case(usage_bad_wait SAMPLES minimal.json UNCHANGED minimal.json
  STEPS set --wait -1 minimal.json /ProfileName changed
  THEN add --wait soon minimal.json /AdvancedRule/EnforceList/IPList 10.9.0.0/16)

# new and schema
zeltcfg_case(new_configuration STEPS new)
zeltcfg_case(schema_text STEPS schema)

# File names and places. Names with spaces and non-ASCII letters, and a
# folder in place of a file, behave the same on every system.
zeltcfg_case(paths_non_ascii_and_spaced SAMPLES minimal.json full.json
  NAMED "Außendienst Nord.json" "東京 config/κλειδί ä.json" RESULT "Außendienst Nord.json"
  STEPS check "Außendienst Nord.json" "東京 config/κλειδί ä.json"
  THEN set "Außendienst Nord.json" /ProfileName "Zürich Süd"
  THEN get "Außendienst Nord.json" /ProfileName
  THEN set "東京 config/κλειδί ä.json" /ProfileName "東京"
  THEN get "東京 config/κλειδί ä.json" /ProfileName
  THEN check "fehlt ö.json")
zeltcfg_case(set_folder_and_missing_folder SAMPLES minimal.json NAMED "folder.json/minimal.json"
  UNCHANGED "folder.json/minimal.json"
  STEPS set folder.json /ProfileName x
  THEN set missing/minimal.json /ProfileName x)

# Windows: a file that another program holds open without sharing or only
# for reading, the read-only attribute, and a \\?\ path longer than the old limit of 260
# characters.
zeltcfg_case(windows_file_held_without_sharing SAMPLES full.json UNCHANGED full.json HOLD full.json
  STEPS check full.json
  THEN set full.json /ProfileName changed)
zeltcfg_case(windows_file_held_for_reading SAMPLES full.json UNCHANGED full.json
  HOLD_FOR_READING full.json
  STEPS check full.json
  THEN set full.json /ProfileName changed)
zeltcfg_case(windows_read_only_file SAMPLES full.json UNCHANGED full.json READ_ONLY full.json
  STEPS set full.json /ProfileName changed
  THEN get full.json /ProfileName
  THEN fmt full.json)
zeltcfg_case(windows_console_output SAMPLES full.json CONSOLE
  STEPS get full.json /ProfileName
  THEN get full.json /AdvancedRule/WhiteList/VPNDescList/1
  THEN check "fehlt ö.json")
if(WIN32)
  set(deep_folders)
  foreach(level RANGE 1 4)
    string(APPEND deep_folders "folder-${level}-with-a-name-long-enough-to-pass-the-old-path-limit/")
  endforeach()
  set(long_path "Z:${CMAKE_CURRENT_BINARY_DIR}/work/windows_long_path/${deep_folders}full.json")
  string(REPLACE "/" "\\" long_path "\\\\?\\${long_path}")
  zeltcfg_case(windows_long_path SAMPLES full.json NAMED "${deep_folders}full.json"
    RESULT "${deep_folders}full.json"
    STEPS set "${long_path}" /ProfileName "long path"
    THEN get "${long_path}" /ProfileName
    THEN fmt --check "${long_path}")
endif()
