//! A ring; it's "bounded".
#![warn(missing_docs)]
use std::{collections::HashMap, fmt};

/* A block
   comment with fn */
#[derive(Debug, Clone, PartialEq)]
pub struct Ring<'a, T: ?Sized + 'static> {
    name: &'a str,
    items: Vec<Option<Box<T>>>,
}

const LIMIT: usize = 0xFF_u8 as usize + 1_000;
static URL: &str = "http://example.org/*"; // link

impl<'a, T> fmt::Display for Ring<'a, T> where T: fmt::Debug {
    fn fmt(&self, f: &mut fmt::Formatter<'_>) -> fmt::Result {
        write!(f, "{}: {:?}\n", self.name, self.items.len())
    }
}

pub async unsafe fn run(mut count: i32) -> Result<(), Box<dyn Error>> {
    let quote = '\''; let tab = '\t'; let uni = '\u{e9}'; let byte = b'x';
    let raw = r#"raw "text""#; let plain = r"C:\temp";
    'outer: loop {
        for i in 0..10 {
            if i == 3 && count > 1 { break 'outer; } else { continue; }
        }
        match count {
            0 => return Ok(()),
            1..=9 if true => {}
            _ => unreachable!("it's {count}"),
        }
        while let Some(x) = next().await { count += 2.5e3_f64 as i32; }
    }
    macro_rules! twice { ($e:expr) => { $e * 2 }; }
    mod inner { pub(crate) trait Named { type Item; } }
}
