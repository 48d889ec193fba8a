# The runner's command line: exit status, headings of several files, standard input, bad lines.
# Wants RUNNER.
set(folder ${CMAKE_CURRENT_BINARY_DIR}/command_line)
file(WRITE ${folder}/good.txt "expect state DaysLate = 0\n")
file(WRITE ${folder}/failed.txt "expect state DaysLate = 7\\t\n")
file(WRITE ${folder}/long.txt "fail help\nstart\nmenu mnuObsah\n")
file(WRITE ${folder}/bad.txt "start\nclick frmMenu.cmdNikde\n\nfly\n")

function(expect_run status output errors)
  execute_process(
    COMMAND ${RUNNER} ${ARGN}
    WORKING_DIRECTORY ${folder}
    INPUT_FILE ${folder}/good.txt
    RESULT_VARIABLE actual_status
    OUTPUT_VARIABLE actual_output
    ERROR_VARIABLE actual_errors)
  foreach(what IN ITEMS status output errors)
    if(NOT "${actual_${what}}" STREQUAL "${${what}}")
      message(SEND_ERROR "${ARGN}: ${what} is\n${actual_${what}}and should be\n${${what}}")
    endif()
  endforeach()
endfunction()

set(good "DaysLate = 0\n")
set(failed "DaysLate = 0\nFAILED expected 7\\t\n")
set(message "message critical \"Velta\"")
set(text "Chyba 53 (Soubor nebyl nalezen) v proceduře")
set(place "(mnuObsah_Click) of (frmMenu.frm).")
set(bad "bad.txt:2: unknown control 'frmMenu.cmdNikde'\nbad.txt:4: unknown command 'fly'\n")
expect_run(0 "${good}" "" good.txt)
expect_run(0 "${good}" "" -)
expect_run(0 "${good}" "")
expect_run(1 "${failed}" "" failed.txt)
expect_run(0 "${message} \"${text}\\r\\n${place}\"\n" "" long.txt)
expect_run(0 "${message}\n    \"${text}\\r\\n\"\n    \"${place}\"\n" "" --lines long.txt)
expect_run(2 "" "${bad}" bad.txt)
expect_run(2 "== failed.txt\n${failed}== good.txt\n${good}" "${bad}" failed.txt bad.txt good.txt)
expect_run(2 "" "missing.txt: cannot be read\n" missing.txt)
expect_run(2 "" "usage: velta-scenario [--platform memory|qt] [--lines] [FILE...|-]\n" --platform paper good.txt)
