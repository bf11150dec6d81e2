// Has bindgen declare the functions of vxsign, and links with the library where pkg-config finds it.
use std::env;
use std::path::Path;
use std::process::Command;

fn output(command: &mut Command) -> String {
    let done = command.output().unwrap_or_else(|error| panic!("{command:?}: {error}"));
    assert!(done.status.success(), "{:?}: {}", command, String::from_utf8_lossy(&done.stderr));
    String::from_utf8(done.stdout).expect("text")
}

fn pkg_config(what: &str) -> Vec<String> {
    let flags = output(Command::new("pkg-config").args([what, "vxsign"]));
    flags.split_whitespace().map(String::from).collect()
}

fn main() {
    let declared = Path::new(&env::var("OUT_DIR").expect("cargo sets it")).join("vxsign.rs");
    output(
        Command::new("bindgen")
            .args(["--allowlist-file", ".*/vxsign/.*", "--default-enum-style", "consts", "--no-prepend-enum-name"])
            .args(["--no-layout-tests", "vxsign.h", "-o"])
            .arg(declared)
            .arg("--")
            .args(pkg_config("--cflags")),
    );
    for flag in pkg_config("--libs") {
        if let Some(folder) = flag.strip_prefix("-L") {
            println!("cargo:rustc-link-search=native={folder}");
        } else if let Some(library) = flag.strip_prefix("-l") {
            println!("cargo:rustc-link-lib={library}");
        }
    }
    println!("cargo:rerun-if-changed=vxsign.h");
}
