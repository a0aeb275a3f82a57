-- Makes a page for the archive of a document: the first heading becomes the page's title, links to
-- other documents lead to their pages, and tables are told apart by what they hold.
local pages = {
  ['administrator.md'] = 'administrator.html',
  ['log.md'] = 'log.html',
  ['support.md'] = 'support.html',
  ['../CHANGELOG.md'] = 'changes.html',
  ['docs/administrator.md'] = 'administrator.html',
  ['docs/log.md'] = 'log.html',
  ['docs/support.md'] = 'support.html',
}

local function to_page(link)
  if link.target:match('^%a+:') or link.target:match('^#') or link.target:match('^panels/') then
    return nil
  end
  local file, anchor = link.target:match('^([^#]*)(#?.*)$')
  if not pages[file] then error('no page of the archive is made of ' .. file) end
  link.target = pages[file] .. anchor
  return link
end

local function holds_picture(block)
  local found = false
  pandoc.walk_block(block, { Image = function() found = true end })
  return found
end

-- Pictures stand above their text where the page is narrow; other tables can be moved sideways, by
-- keyboard too.
local tables = 0
local function to_kind(block)
  if holds_picture(block) then
    block.classes:insert('pictures')
    return block
  end
  tables = tables + 1
  -- A list, for only a list keeps its order.
  local attributes = { { 'tabindex', '0' }, { 'role', 'region' }, { 'aria-label', 'Table ' .. tables } }
  return pandoc.Div({ block }, pandoc.Attr('', { 'wide' }, attributes))
end

local function take_title(document)
  local rest = pandoc.List()
  for _, block in ipairs(document.blocks) do
    if block.t == 'Header' and block.level == 1 and not document.meta.title then
      document.meta.title = pandoc.MetaInlines(block.content)
    else
      rest:insert(block)
    end
  end
  document.blocks = rest
  return document
end

return { { Link = to_page }, { Table = to_kind }, { Pandoc = take_title } }
