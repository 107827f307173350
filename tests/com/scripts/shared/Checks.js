// What all tests in JScript share. An error that nobody expects ends the script, which then has
// neither all of its lines nor the last one.
var checks = 0;

function plan(count) {
  WScript.Echo("1.." + count);
}

function done() {
  WScript.Echo("done");
}

function report(passed, what, got, wanted) {
  checks += 1;
  WScript.Echo(passed ? "ok " + checks + " - " + what
                      : "not ok " + checks + " - " + what + ": got " + got + ", wanted " + wanted);
}

// An object of a library does not always have a text.
function shown(value) {
  return typeof value === "object" && value !== null ? "an object" : typeof value + " " + value;
}

// Value and type are the same; of objects: the very same one.
function equal(got, wanted, what) {
  report(got === wanted, what, shown(got), shown(wanted));
}

function errorOf(work) {
  try {
    work();
  } catch (error) {
    return "error " + (error.number & 0xFFFF) + " (" + error.description + ")";
  }
  return "no error";
}

// `work` raises an error of the library, with its own description.
function raised(number, description, what, work) {
  var wanted = "error " + number + " (" + description + ")";
  var got = errorOf(work);
  report(got === wanted, what, got, wanted);
}

function made(className) {
  return new ActiveXObject("NorvoPlayList." + className);
}

var TYPE_MISMATCH = "Type mismatch";
var OVERFLOW = "Overflow";
var INVALID_CALL = "Invalid procedure call or argument";
var INVALID_NULL = "Invalid use of Null";
var NO_SUCH_MEMBER = "Object doesn't support this property or method";
var WRONG_ARGUMENTS = "Wrong number of arguments or invalid property assignment";
