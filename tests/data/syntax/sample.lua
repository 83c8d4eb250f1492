#!/usr/bin/env lua
-- Counts words; doesn't care about "case".
--[[ A comment
     over lines: if then end
]]
local M = {}
local limit <const> = 0x1F + 1.5e-3
local text = "it's -- no comment" -- but this
local long = [[raw "text" here]] .. [=[with ]] inside]=]

function M.count(s, ...)
  local n = 0
  for word in string.gmatch(s, '%w+') do
    if not M[word] and #word > 3 then
      n = n + 1
    elseif word == "\"end\"" or word ~= nil then
      goto continue
    else
      break
    end
    ::continue::
  end
  repeat n = n // 2 until n <= 10 or true
  while false do end
  --[==[ one line ]==] print(n, 1..2)
  return select('#', ...), tostring(n)
end

return setmetatable(M, { __index = _G }) -- "done
